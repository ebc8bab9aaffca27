// What a preview frame of an 80 × 4 level costs, three ways of sending its terrain, and what
// entering the preview costs. Needs a display with OpenGL.

#include "bench/BenchView.h"
#include "bench/RatioTable.h"
#include "bench/SampleLevel.h"
#include "bench/TerrainNodes.h"
#include "environment/BackgroundNode.h"
#include "environment/OpenGLSetup.h"
#include "environment/SkyTextures.h"
#include "environment/TextureUpload.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

constexpr int dimension = 80;
constexpr int density = 4;
constexpr int viewSide = 600;
constexpr int textureSide = 1024;

/// In the place of the level's terrain: draws one of several nodes.
class Switch : public SceneNode {
public:
    std::vector<std::unique_ptr<SceneNode>> ways;
    std::size_t shown = 0;

    void draw(float time) override {
        if (shown < ways.size()) {
            ways[shown]->draw(time);
        }
    }
    void drawSecondPass(float) override {}
    void initGL() override {
        for (const auto &way : ways) {
            way->initGL();
        }
    }
    void writeXml(QTextStream &) const override {}
    bool readXml(QDomElement, CISG *) override { return false; }
};

enum Way : std::size_t { shipped, anew, buffers, nothing };

/// A grainy picture, so that the decoder has something to do.
QImage picture(int seed) {
    QImage image(textureSide, textureSide, QImage::Format_RGB32);
    auto grain = static_cast<unsigned>(seed);
    for (int y = 0; y < textureSide; ++y) {
        for (int x = 0; x < textureSide; ++x) {
            grain = grain * 1664525U + 1013904223U;
            const int value = 96 + (x * y / 4096) % 96 + static_cast<int>(grain >> 28);
            image.setPixel(x, y, qRgb(value, 255 - value, (x + seed * 40) % 256));
        }
    }
    return image;
}

/// The level's pictures as files in a folder of their own.
class Pictures {
public:
    Pictures() {
        for (const char *name : {"ground.jpg", "water.jpg", "terrain.jpg"}) {
            add(folder.filePath(QLatin1String(name)));
        }
        for (int face = 0; face < 6; ++face) {
            QString name = sky();
            cubeFaceFileName(face, name);
            add(name);
        }
    }

    QString sky() const { return folder.filePath(QStringLiteral("mount.jpg")); }

    std::vector<QString> files; ///< Ground, water, terrain, then the faces of the sky.

private:
    void add(const QString &name) {
        if (!picture(static_cast<int>(files.size())).save(name)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(name));
            std::exit(2);
        }
        files.push_back(name);
    }

    QTemporaryDir folder;
};

/// The view with the level; its terrain's node is exchanged for a Switch.
class Stage {
public:
    Stage() : view(viewSide) {
        auto level = std::make_unique<LevelDocument>();
        fillWithHills(*level, dimension, density);
        level->mesh->texture = pictures.files[2];
        level->background->groundTexture = pictures.files[0];
        level->background->waterTexture = pictures.files[1];
        level->background->cubeTexture = pictures.sky();
        auto exchange = std::make_unique<Switch>();
        choice = exchange.get();
        auto &nodes = level->root.children;
        for (auto &node : nodes) {
            if (node.get() == level->mesh) {
                choice->ways.push_back(std::move(node));
                node = std::move(exchange);
            }
        }
        choice->ways.push_back(std::make_unique<SentTerrain>(*level->mesh));
        choice->ways.push_back(std::make_unique<BufferedTerrain>(*level->mesh));
        surroundings = std::move(nodes.front());
        nodes.pop_front();
        view.showLevel(std::move(level));
    }

    MeshNode &terrain() const { return *view.document->mesh; }

    /// With the surroundings, a frame has sky, ground frame, outline and water too.
    void setSurroundings(bool shown) {
        auto &nodes = view.document->root.children;
        if (shown && surroundings) {
            nodes.push_front(std::move(surroundings));
        } else if (!shown && !surroundings) {
            surroundings = std::move(nodes.front());
            nodes.pop_front();
        }
    }

    void draw(Way way) {
        choice->shown = way;
        view.drawFrame();
    }

    void enter() {
        view.setDirty(true);
        draw(shipped);
    }

    QImage image(Way way) {
        choice->shown = way;
        return view.grabFramebuffer();
    }

    Pictures pictures;

private:
    BenchView view;
    Switch *choice = nullptr;
    std::unique_ptr<SceneNode> surroundings;
};

void addDrawing(RatioTable &table, Stage &stage) {
    const auto bare = [&stage] { stage.setSurroundings(false); };
    const auto buffered = [&stage] { stage.draw(buffers); };
    table.add({.name = "drawing, as shipped",
               .work = [&stage] { stage.draw(shipped); },
               .floorName = "buffer objects, glMultiDrawElements",
               .floor = buffered,
               .limit = 1.15,
               .prepare = bare,
               .timing = Timing::Wall});
    table.add({.name = "drawing, sent anew",
               .work = [&stage] { stage.draw(anew); },
               .floorName = "buffer objects, glMultiDrawElements",
               .floor = buffered,
               .prepare = bare,
               .timing = Timing::Wall});
    table.add({.name = "an empty frame",
               .work = [&stage] { stage.draw(nothing); },
               .prepare = bare,
               .timing = Timing::Wall});
    table.add({.name = "a frame with surroundings",
               .work = [&stage] { stage.draw(shipped); },
               .prepare = [&stage] { stage.setSurroundings(true); },
               .timing = Timing::Wall});
}

void addEntering(RatioTable &table, Stage &stage, const std::vector<QImage> &images, GLuint texture) {
    table.add({.name = "entering: decoding",
               .work =
                   [&stage] {
                       for (const QString &file : stage.pictures.files) {
                           benchmark::DoNotOptimize(readGLImage(file));
                       }
                   },
               .timing = Timing::Wall});
    table.add({.name = "entering: mipmaps",
               .work =
                   [&images, texture] {
                       glBindTexture(GL_TEXTURE_2D, texture);
                       for (const QImage &image : images) {
                           uploadWithMipmaps(GL_TEXTURE_2D, image);
                       }
                       glFinish();
                   },
               .timing = Timing::Wall});
    table.add({.name = "entering: list, and a frame",
               .work =
                   [&stage] {
                       stage.terrain().markChanged();
                       stage.draw(shipped);
                   },
               .floorName = "the frame alone",
               .floor = [&stage] { stage.draw(shipped); },
               .prepare = [&stage] { stage.setSurroundings(true); },
               .timing = Timing::Wall});
    table.add({.name = "entering: normals",
               .work = [&stage] { stage.terrain().computeNormals(); },
               .timing = Timing::Wall});
    table.add({.name = "entering, in all (guide: 500)",
               .work = [&stage] { stage.enter(); },
               .prepare = [&stage] { stage.setSurroundings(true); },
               .timing = Timing::Wall});
}

std::size_t differentBytes(const QImage &a, const QImage &b) {
    std::size_t count = 0;
    for (qsizetype i = 0; i < a.sizeInBytes(); ++i) {
        if (a.constBits()[i] != b.constBits()[i]) {
            ++count;
        }
    }
    return count;
}

/// Says whether the shipped picture is, byte for byte, the one that is sent anew.
bool picturesAgree(Stage &stage) {
    stage.setSurroundings(false);
    const QImage empty = stage.image(nothing);
    const QImage sent = stage.image(anew);
    const QImage list = stage.image(shipped);
    const QImage buffered = stage.image(buffers);
    if (sent.sizeInBytes() != list.sizeInBytes() || sent.sizeInBytes() != buffered.sizeInBytes() ||
        differentBytes(sent, empty) == 0) {
        std::printf("the frames cannot be compared\n");
        return false;
    }
    const std::size_t different = differentBytes(sent, list);
    std::printf("%d x %d pixels, %zu bytes of terrain; differing from the terrain sent anew: "
                "as shipped %zu bytes, buffer objects %zu bytes\n",
                sent.width(), sent.height(), differentBytes(sent, empty), different,
                differentBytes(sent, buffered));
    return different == 0;
}

} // namespace

int main(int argc, char **argv) {
    prepareApplication();
    const QApplication application(argc, argv);
    Stage stage;
    stage.setSurroundings(true);
    stage.enter();
    std::vector<QImage> images;
    for (const QString &file : stage.pictures.files) {
        images.push_back(readGLImage(file));
    }
    GLuint texture = 0;
    glGenTextures(1, &texture);

    RatioTable table;
    addDrawing(table, stage);
    addEntering(table, stage, images, texture);
    const int status = table.run(argc, argv);
    const bool agree = picturesAgree(stage);
    return agree ? status : 1;
}
