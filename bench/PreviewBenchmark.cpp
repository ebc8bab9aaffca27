// What a preview frame of an 80 × 4 level costs, three ways of sending its terrain, and what
// entering the preview costs. Needs a display with OpenGL.

#include "bench/LevelFloors.h"
#include "bench/PreviewStage.h"
#include "bench/RatioTable.h"
#include "environment/OpenGLSetup.h"
#include "environment/TextureUpload.h"

#include <QApplication>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>

namespace {

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

void addSetUps(RatioTable &table, Stage &stage, GLuint texture) {
    const auto whole = [&stage] { stage.setSurroundings(true); };
    table.add({.name = "a set-up, no file changed",
               .work = [&stage] { stage.setUp(); },
               .floorName = "a frame",
               .floor = [&stage] { stage.draw(shipped); },
               .limit = 1.3,
               .prepare = whole});
    table.add({.name = "a set-up, another ground",
               .work = [&stage] { stage.changeGround(); },
               .floorName = "a frame, decoding and mipmaps of one picture",
               .floor =
                   [&stage, texture] {
                       const QImage picture = readGLImage(stage.pictures.files[0]);
                       glBindTexture(GL_TEXTURE_2D, texture);
                       uploadWithMipmaps(GL_TEXTURE_2D, picture);
                       stage.draw(shipped);
                   },
               .limit = 1.15,
               .prepare = whole});
}

/// What a frame costs as its surfaces are filtered, and what it would cost where they are sharp aslant.
void addFilters(RatioTable &table, Stage &stage) {
    const float shippedRatio = stage.setAnisotropy(1);
    const auto frame = [&stage](float ratio) {
        return [&stage, ratio] {
            stage.setAnisotropy(ratio);
            stage.draw(shipped);
        };
    };
    const auto add = [&](const std::string &name, float ratio, double limit) {
        table.add({.name = name,
                   .work = frame(ratio),
                   .floorName = "a frame without anisotropy",
                   .floor = frame(1),
                   .limit = limit,
                   .prepare = [&stage] { stage.setSurroundings(true); }});
    };
    add("a frame as filtered", shippedRatio, 1.3);
    add("a frame, anisotropy 2", 2, 0);
    add("a frame, anisotropy 16", 16, 0);
}

/// Uploads each picture into a texture of its own, as the first set-up does.
template <typename Pictures, typename Upload>
void uploadAnew(Pictures first, Pictures last, Upload upload) {
    std::vector<GLuint> textures(static_cast<std::size_t>(last - first));
    const auto count = static_cast<GLsizei>(textures.size());
    glGenTextures(count, textures.data());
    for (const GLuint texture : textures) {
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        upload(*first++);
    }
    glFinish();
    glDeleteTextures(count, textures.data());
}

/// The means of four texels each, level by level, as plain loops.
void uploadMeans(const QImage &image) {
    int side = image.width();
    std::vector<unsigned char> texels(image.constBits(), image.constBits() + image.sizeInBytes());
    for (GLint level = 0; side > 0; ++level, side /= 2) {
        glTexImage2D(GL_TEXTURE_2D, level, 3, side, side, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
        const auto row = static_cast<std::size_t>(side) * 4;
        unsigned char *to = texels.data();
        for (int y = 0; y + 1 < side; y += 2) {
            const unsigned char *from = texels.data() + static_cast<std::size_t>(y) * row;
            for (int x = 0; x + 1 < side; x += 2, from += 4) {
                for (int component = 0; component < 4; ++component, ++from) {
                    *to++ =
                        static_cast<unsigned char>((from[0] + from[4] + from[row] + from[row + 4] + 2) / 4);
                }
            }
        }
    }
}

/// What entering the preview for the first time consists of.
constexpr std::array pieces{"entering: reading the pictures", "entering: mipmaps of three",
                            "entering: six faces", "entering: list, and a frame", "entering: normals"};
constexpr const char *entering = "entering, in all";

void addEntering(RatioTable &table, Stage &stage, const std::vector<QImage> &images) {
    const auto split = images.begin() + Pictures::surfaces;
    table.add({.name = pieces[0],
               .work =
                   [&stage] {
                       for (const QString &file : stage.pictures.files) {
                           benchmark::DoNotOptimize(readGLImage(file));
                       }
                   },
               .floorName = "the image library, in its own layout",
               .floor =
                   [&stage] {
                       for (const QString &file : stage.pictures.files) {
                           benchmark::DoNotOptimize(QImage(file));
                       }
                   },
               .limit = 1.3});
    table.add({.name = pieces[1],
               .work =
                   [&images, split] {
                       uploadAnew(images.begin(), split,
                                  [](const QImage &image) { uploadWithMipmaps(GL_TEXTURE_2D, image); });
                   },
               .floorName = "loops over bytes, glTexImage2D",
               .floor = [&images, split] { uploadAnew(images.begin(), split, uploadMeans); }});
    table.add({.name = pieces[2],
               .work =
                   [&images, split] {
                       uploadAnew(split, images.end(),
                                  [](const QImage &image) { uploadWithoutMipmaps(GL_TEXTURE_2D, image, 4); });
                   },
               .floorName = "copying their bytes",
               .floor =
                   [&images, split] {
                       std::for_each(split, images.end(),
                                     [](const QImage &image) { benchmark::DoNotOptimize(image.copy()); });
                   }});
    table.add({.name = pieces[3],
               .work =
                   [&stage] {
                       stage.terrain().markChanged();
                       stage.draw(shipped);
                   },
               .floorName = "the frame alone",
               .floor = [&stage] { stage.draw(shipped); },
               .prepare = [&stage] { stage.setSurroundings(true); }});
    table.add({.name = pieces[4],
               .work =
                   [&stage] {
                       stage.changeHeights();
                       stage.terrain().computeNormals();
                   },
               .floorName = "the same over plain arrays",
               .floor =
                   [&stage] {
                       static std::vector<float> heights;
                       static std::vector<Vec3> faces;
                       static std::vector<Vec3> sums;
                       heights.clear();
                       faces.resize(stage.terrain().triangles.size());
                       sums.resize(stage.terrain().vertices.size());
                       for (const TerrainVertex &vertex : stage.terrain().vertices) {
                           heights.push_back(vertex.position.y);
                       }
                       bareNormals(heights, Stage::dimension * Stage::density, 1.0F / Stage::density, faces,
                                   sums);
                       benchmark::DoNotOptimize(sums.data());
                   }});
    table.add({.name = entering,
               .work = [&stage] { stage.enter(); },
               .prepare = [&stage] { stage.setSurroundings(true); }});
}

/// Says how much of entering the preview the pieces account for; false where a tenth is left.
bool allIsNamed(const RatioTable &table) {
    const double whole = table.milliseconds(entering);
    double named = 0;
    for (const char *piece : pieces) {
        const double time = table.milliseconds(piece);
        if (whole <= 0 || time <= 0) {
            return true; // not asked for
        }
        named += time;
    }
    std::printf("entering: %.1f of %.1f ms are named, %.0f %% are left\n", named, whole,
                100 * (1 - named / whole));
    return named > 0.9 * whole;
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
    stage.setUp();
    std::vector<QImage> images;
    for (const QString &file : stage.pictures.files) {
        images.push_back(readGLImage(file));
    }
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);

    RatioTable table;
    addDrawing(table, stage);
    addFilters(table, stage);
    addSetUps(table, stage, texture);
    addEntering(table, stage, images);
    const int status = table.run(argc, argv);
    const bool named = allIsNamed(table);
    const bool agree = picturesAgree(stage);
    return agree && named ? status : 1;
}
