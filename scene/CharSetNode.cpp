#include "scene/CharSetNode.h"

#include "scene/CISG.h"

#include <QTextStream>

void CharSetNode::padToSlots() {
    while (characters.size() < slotCount) {
        characters.push_back(std::make_unique<CharacterNode>());
    }
}

void CharSetNode::writeXml(QTextStream &out) const {
    out << "<CharSetNode>\n";
    for (const auto &character : characters) {
        character->writeXml(out);
    }
    for (const auto &other : others) {
        other->writeXml(out);
    }
    out << "</CharSetNode>\n";
}

bool CharSetNode::readXml(QDomElement element, CISG *factory) {
    if (element.tagName() != QLatin1String("CharSetNode")) {
        return false;
    }
    characters.clear();
    others.clear();
    const bool complete = readChildren(element, factory);
    padToSlots();
    return complete;
}

bool CharSetNode::readChildren(const QDomElement &element, CISG *factory) {
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        std::unique_ptr<SceneNode> node = factory->createNode(child.tagName());
        if (!node) {
            return false;
        }
        node->readXml(child, factory);
        if (auto *character = dynamic_cast<CharacterNode *>(node.get())) {
            node.release();
            characters.emplace_back(character);
        } else {
            others.push_back(std::move(node));
        }
    }
    return true;
}
