#include "scene/CISGGroup.h"

#include "scene/CISG.h"

#include <GL/gl.h>
#include <QTextStream>

void CISGGroup::draw(float time) {
    glPushMatrix();
    for (const auto &child : children) {
        child->draw(time);
    }
    glPopMatrix();
}

void CISGGroup::drawSecondPass(float time) {
    glPushMatrix();
    for (const auto &child : children) {
        child->drawSecondPass(time);
    }
    glPopMatrix();
}

void CISGGroup::initGL() {
    glPushMatrix();
    for (const auto &child : children) {
        child->initGL();
    }
    glPopMatrix();
}

void CISGGroup::writeXml(QTextStream &out) const {
    out << "<CISGGroup>\n";
    for (const auto &child : children) {
        child->writeXml(out);
    }
    out << "</CISGGroup>\n";
}

bool CISGGroup::readXml(QDomElement element, CISG *factory) {
    children.clear();
    if (element.tagName() != QLatin1String("CISGGroup")) {
        return false;
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        std::unique_ptr<SceneNode> node = factory->createNode(child.tagName());
        if (!node) {
            return false;
        }
        node->readXml(child, factory);
        children.push_back(std::move(node));
    }
    return true;
}
