#pragma once

#include "scene/CharacterNode.h"

#include <memory>
#include <vector>

/// The players of a level, in slot order.
class CharSetNode : public SceneNode {
public:
    /// Slots the editor shows and edits; a set that was read holds at least as many players.
    static constexpr std::size_t slotCount = 16;

    std::vector<std::unique_ptr<CharacterNode>> characters;

    /// Nodes a file put among the players that are none: kept, and written after the players.
    std::vector<std::unique_ptr<SceneNode>> others;

    /// Appends default players until there are slotCount.
    void padToSlots();

    void draw(float) override {}
    void drawSecondPass(float) override {}
    void writeXml(QTextStream &out) const override;
    bool readXml(QDomElement element, CISG *factory) override;

private:
    bool readChildren(const QDomElement &element, CISG *factory);
};
