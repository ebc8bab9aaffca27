#pragma once

#include "models/Md2Content.h"

#include <QOpenGLContextGroup>
#include <QPointer>

/// An animated model with its skin. It counts as loaded once it has triangles; until then it
/// neither moves nor draws.
class Md2Model : public Md2Content {
public:
    Md2Model() = default;
    /// Deletes the texture where a context that knows it is current; elsewhere the name goes with
    /// its contexts.
    ~Md2Model();
    Md2Model(const Md2Model &) = delete;
    Md2Model &operator=(const Md2Model &) = delete;

    /// Reads a model file, found without regard to letter case, and keeps `skinPath` for LoadSkin
    /// whatever happens. Both are paths in the system's 8-bit encoding. False, with the lists as
    /// they were, where the file cannot be opened, is larger than 64 MiB or damaged; a damaged one is also
    /// named by a line on standard output, and `header` then holds the damaged file's. Needs no OpenGL.
    bool Load(const std::string &modelPath, const std::string &skinPath);

    /// Fills the skin's texture, made if there is none yet, from the image at `skinPath` (".png"
    /// for ".pcx"); no image leaves an empty texture. Needs a current context.
    void LoadSkin();

    /// Advances by the time since the previous call and draws. `time` is in seconds on a clock
    /// that only moves forward. Needs a current context.
    void Animate(float time);

    /// Draws (1 − blend) × frameA + blend × frameB with the skin, in white, where the model-view
    /// transform puts it. Frames outside the model are clamped to it. Needs a current context.
    void DrawFrames(int frameA, int frameB, float blend);

    Md2Header header;
    float speed = 0; ///< Frames per second.
    std::int32_t startFrame = 0;
    std::int32_t endFrame = 0;  ///< Inclusive; below startFrame, startFrame is shown.
    float framePosition = 0;    ///< Frame shown and, after the point, how far on to the next.
    float lastTime = 0;         ///< Seconds.
    unsigned int textureId = 0; ///< 0 where no texture was made yet.
    std::string skinPath;

private:
    bool hasTexture() const;
    void blendFrames(const Md2Frame &a, const Md2Frame &b, float blend);
    void issueCommands() const;

    /// The contexts that know textureId: in others the number may be someone else's texture.
    QPointer<QOpenGLContextGroup> textureOwners_;
    std::vector<Md2Vertex> blended_; ///< Working space of a draw.
};
