#include "scene/CISGGroup.h"

#include "scene/CISG.h"

#include <GL/gl.h>
#include <QTextStream>
#include <array>

namespace {

/// Keeps OpenGL's modelview matrix and puts it back. Groups may be nested deeper than OpenGL's own
/// stack of matrices is.
class KeptModelview {
public:
    KeptModelview() { glGetFloatv(GL_MODELVIEW_MATRIX, matrix.data()); }
    KeptModelview(const KeptModelview &) = delete;
    KeptModelview &operator=(const KeptModelview &) = delete;
    ~KeptModelview() { glLoadMatrixf(matrix.data()); }

private:
    std::array<GLfloat, 16> matrix{};
};

} // namespace

void CISGGroup::draw(float time) {
    const KeptModelview kept;
    for (const auto &child : children) {
        child->draw(time);
    }
}

void CISGGroup::drawSecondPass(float time) {
    const KeptModelview kept;
    for (const auto &child : children) {
        child->drawSecondPass(time);
    }
}

void CISGGroup::initGL() {
    const KeptModelview kept;
    for (const auto &child : children) {
        child->initGL();
    }
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
