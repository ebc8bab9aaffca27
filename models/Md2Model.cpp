#include "models/Md2Model.h"

#include "environment/PathLookup.h"
#include "environment/TextureUpload.h"
#include "models/Md2Decoder.h"

#include <GL/gl.h>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {

Q_LOGGING_CATEGORY(modelsLog, "druvelk.models")

QOpenGLContextGroup *currentShareGroup() {
    const QOpenGLContext *context = QOpenGLContext::currentContext();
    return context != nullptr ? context->shareGroup() : nullptr;
}

/// The largest model that is read; what the format was made for takes a few MiB.
constexpr qint64 mostModelBytes = qint64{64} * 1024 * 1024;

/// The whole of an open file, or no more than a header's worth of one that is no model or too large.
QByteArray readModelFile(QFile &file) {
    const bool isModel = file.peek(md2Ident.size()) == QByteArrayView(md2Ident.data(), md2Ident.size());
    return isModel && file.size() <= mostModelBytes ? file.read(file.size()) : file.read(sizeof(Md2Header));
}

/// A frame position cut down to what an index can hold.
int frameIndex(double position) {
    return static_cast<int>(std::clamp(std::floor(position), 0.0, double{std::numeric_limits<int>::max()}));
}

const Md2Frame &frameAt(const std::vector<Md2Frame> &frames, int index) {
    return frames[std::min(static_cast<std::size_t>(std::max(index, 0)), frames.size() - 1)];
}

Vec3 mix(const Vec3 &a, const Vec3 &b, float weightOfA, float weightOfB) {
    return {weightOfA * a.x + weightOfB * b.x, weightOfA * a.y + weightOfB * b.y,
            weightOfA * a.z + weightOfB * b.z};
}

} // namespace

Md2Model::~Md2Model() {
    if (textureId != 0 && textureOwners_ != nullptr && hasTexture()) {
        glDeleteTextures(1, &textureId);
    }
}

bool Md2Model::Load(const std::string &modelPath, const std::string &newSkinPath) {
    skinPath = newSkinPath;
    const QString path = existingPath(QFile::decodeName(modelPath.c_str()));
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        qCWarning(modelsLog) << "cannot open the model" << path;
        return false;
    }
    const QByteArray bytes = readModelFile(file);
    Md2Decoder decoder(bytes);
    const bool sound = decoder.check();
    header = decoder.header;
    if (!sound) {
        std::fputs("Bad header for MD2 file.\n", stdout);
        std::fflush(stdout);
        qCWarning(modelsLog) << "cannot use the model" << path << "because" << decoder.problem;
        return false;
    }
    decoder.decode(*this);
    return true;
}

bool Md2Model::hasTexture() const {
    return textureId != 0 && textureOwners_ == currentShareGroup();
}

void Md2Model::LoadSkin() {
    if (!hasTexture()) {
        glGenTextures(1, &textureId);
        textureOwners_ = currentShareGroup();
    }
    QString path = QFile::decodeName(skinPath.c_str());
    path.replace(QLatin1String(".pcx"), QLatin1String(".png"));
    const QImage image = readGLImage(path);
    glBindTexture(GL_TEXTURE_2D, textureId);
    uploadWithMipmaps(GL_TEXTURE_2D, image);
}

void Md2Model::Animate(float time) {
    if (triangles.empty()) {
        return;
    }
    const float elapsed = time - lastTime;
    lastTime = time;
    framePosition += elapsed * speed;
    const double length = 1.0 + endFrame - startFrame;
    if (length <= 0 || !std::isfinite(framePosition)) {
        framePosition = static_cast<float>(startFrame);
        DrawFrames(startFrame, startFrame, 0);
        return;
    }
    // All whole ranges at once: after a long pause there may be very many.
    const double ranges = std::ceil((framePosition - (1.0 + endFrame)) / length);
    if (ranges > 0) {
        framePosition = static_cast<float>(framePosition - ranges * length);
    }
    const double position = std::max(double{framePosition}, 0.0);
    const int next = frameIndex(position + 1);
    DrawFrames(frameIndex(position), next > endFrame ? startFrame : next,
               static_cast<float>(std::fmod(position, 1.0)));
}

void Md2Model::DrawFrames(int frameA, int frameB, float blend) {
    if (triangles.empty()) {
        return;
    }
    if (!hasTexture()) {
        LoadSkin();
    }
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, textureId);
    glColor3f(1, 1, 1);
    if (!frames.empty()) {
        blendFrames(frameAt(frames, frameA), frameAt(frames, frameB), blend);
        issueCommands();
    }
}

/// Each vertex once, though several runs of the commands may use it.
void Md2Model::blendFrames(const Md2Frame &a, const Md2Frame &b, float blend) {
    const float weight = 1 - blend;
    blended_.resize(std::min(a.vertices.size(), b.vertices.size()));
    for (std::size_t i = 0; i < blended_.size(); ++i) {
        blended_[i] = {mix(a.vertices[i].position, b.vertices[i].position, weight, blend),
                       mix(a.vertices[i].normal, b.vertices[i].normal, weight, blend)};
    }
}

void Md2Model::issueCommands() const {
    const std::int32_t *word = glCommands.data();
    const std::int32_t *const end = word + glCommands.size();
    while (word != end && *word != 0) {
        const std::int64_t count = *word++;
        // The lists are open to change, so they are not taken to be as sound as when they were read.
        const std::int64_t run = std::min<std::int64_t>(std::abs(count), (end - word) / 3);
        glBegin(count > 0 ? GL_TRIANGLE_STRIP : GL_TRIANGLE_FAN);
        for (std::int64_t i = 0; i < run; ++i, word += md2WordsPerCommandVertex) {
            const auto index = static_cast<std::uint32_t>(word[2]);
            if (index >= blended_.size()) {
                continue;
            }
            glTexCoord2f(std::bit_cast<float>(word[0]), 1.0F - std::bit_cast<float>(word[1]));
            glNormal3fv(&blended_[index].normal.x);
            glVertex3fv(&blended_[index].position.x);
        }
        glEnd();
    }
}
