#pragma once

#include <QDomElement>

class CISG;
class QTextStream;

/// A node of a level: it draws itself in two passes, makes its OpenGL resources, and writes and
/// reads itself as XML.
class SceneNode {
public:
    SceneNode() = default;
    SceneNode(const SceneNode &) = delete;
    SceneNode &operator=(const SceneNode &) = delete;

    /// Releases the node's OpenGL names if a context is current.
    virtual ~SceneNode() = default;

    /// First drawing pass. Needs a current OpenGL context.
    virtual void draw(float time) = 0;

    /// Second drawing pass, run after the first pass of every node. Needs a current context.
    virtual void drawSecondPass(float time) = 0;

    /// Makes or refreshes textures and display lists. Needs a current context.
    virtual void initGL() {}

    /// Appends the node's XML text to the stream.
    virtual void writeXml(QTextStream &out) const = 0;

    /// Fills the node from the element. `factory` makes the nodes of child elements. False where
    /// the element is not of this node's type, or (for containers) holds a tag nobody knows;
    /// what was read until then stays.
    virtual bool readXml(QDomElement element, CISG *factory) = 0;
};
