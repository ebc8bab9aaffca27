#pragma once

#include "scene/CISGGroup.h"

#include <QString>
#include <cstdint>
#include <memory>

class QIODevice;

/// The root of a level: one group of nodes, a file, and the factory that makes a node for a tag.
class CISG {
public:
    CISG() = default;
    CISG(const CISG &) = delete;
    CISG &operator=(const CISG &) = delete;
    virtual ~CISG() = default;

    /// A new node for an XML tag (case matters), or null for a tag that is not known.
    virtual std::unique_ptr<SceneNode> createNode(const QString &tag);

    /// Reads a level file. False where it cannot be opened or read; what was read stays.
    bool load(const QString &fileName);

    /// Reads a level from an open device. False where it is refused (see levelIsSafeToParse), is
    /// not well-formed, is no level, or holds an unknown tag; what was read until then stays.
    bool read(QIODevice &device);

    void write(QTextStream &out) const;

    void draw(float time) { root.draw(time); }
    void drawSecondPass(float time) { root.drawSecondPass(time); }

    /// Takes `count` terrain points from what one level may hold in all (2²⁰); false, and takes
    /// none, where fewer are left. Every read starts with the full amount.
    bool takeTerrainPoints(std::int64_t count);

    CISGGroup root;

private:
    static constexpr std::int64_t mostTerrainPoints = std::int64_t{1} << 20;
    std::int64_t terrainPointsLeft = mostTerrainPoints;
};
