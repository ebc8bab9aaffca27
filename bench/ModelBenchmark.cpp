// What animating and loading a model costs, next to the least that could be done for the same result.

#include "environment/OpenGLSetup.h"
#include "models/Md2Builder.h"
#include "models/Md2Model.h"
#include "models/Md2Normals.h"

#include <GL/gl.h>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstring>
#include <map>

namespace {

/// A crumpled sheet in strips, with 2 × rows × columns triangles.
QByteArray sheet(int rows, int columns, int frames) {
    Md2Builder builder;
    builder.addTriangle({0, 1, 2, 0, 1, 2});
    const auto vertexAt = [&](int row, int column) { return row * (columns + 1) + column; };
    for (int frame = 0; frame < frames; ++frame) {
        std::vector<std::uint8_t> vertices;
        for (int vertex = 0; vertex < (rows + 1) * (columns + 1); ++vertex) {
            for (const int coordinate : {vertex * 7 + frame, vertex * 5, vertex * 3 + frame * 2}) {
                vertices.push_back(static_cast<std::uint8_t>(coordinate));
            }
            vertices.push_back(static_cast<std::uint8_t>((vertex + frame) % int(md2NormalCount)));
        }
        builder.addFrame({0.2F, 0.2F, 0.2F}, {-20, -20, -24}, "frame", vertices);
    }
    for (int row = 0; row < rows; ++row) {
        builder.addRun(2 * (columns + 1));
        for (int column = 0; column <= columns; ++column) {
            for (const int side : {row, row + 1}) {
                builder.addVertex(float(column) / float(columns), float(side) / float(rows),
                                  vertexAt(side, column));
            }
        }
    }
    builder.addRun(0);
    return builder.bytes();
}

struct ReadyVertex {
    std::array<float, 2> texCoord;
    Vec3 normal;
    Vec3 position;
};

struct ReadyRun {
    GLenum mode;
    std::vector<ReadyVertex> vertices;
};

std::vector<ReadyRun> readyRuns(const Md2Model &model) {
    std::vector<ReadyRun> runs;
    for (const std::int32_t *word = model.glCommands.data(); *word != 0;) {
        const std::int32_t count = *word++;
        runs.push_back({GLenum(count > 0 ? GL_TRIANGLE_STRIP : GL_TRIANGLE_FAN), {}});
        for (int i = 0; i < std::abs(count); ++i, word += 3) {
            const Md2Vertex &vertex = model.frames[0].vertices[static_cast<std::size_t>(word[2])];
            runs.back().vertices.push_back({{std::bit_cast<float>(word[0]), std::bit_cast<float>(word[1])},
                                            vertex.normal,
                                            vertex.position});
        }
    }
    return runs;
}

void issue(const std::vector<ReadyRun> &runs, unsigned int texture) {
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, texture);
    glColor3f(1, 1, 1);
    for (const ReadyRun &run : runs) {
        glBegin(run.mode);
        for (const ReadyVertex &vertex : run.vertices) {
            glTexCoord2fv(vertex.texCoord.data());
            glNormal3fv(&vertex.normal.x);
            glVertex3fv(&vertex.position.x);
        }
        glEnd();
    }
}

void prepare(Md2Model &model, const QString &path) {
    model.Load(path.toStdString(), "none.png");
    model.LoadSkin();
    model.speed = 2;
    model.endFrame = 39;
}

void drawAnimated(benchmark::State &state, const QString &character, const QString &weapon) {
    Md2Model first;
    Md2Model second;
    prepare(first, character);
    prepare(second, weapon);
    float time = 0;
    for (auto _ : state) {
        time += 0.02F;
        first.Animate(time);
        second.Animate(time);
        glFinish();
    }
}

void drawReady(benchmark::State &state, const QString &character, const QString &weapon) {
    Md2Model first;
    Md2Model second;
    prepare(first, character);
    prepare(second, weapon);
    const std::vector<ReadyRun> firstRuns = readyRuns(first);
    const std::vector<ReadyRun> secondRuns = readyRuns(second);
    for (auto _ : state) {
        issue(firstRuns, first.textureId);
        issue(secondRuns, second.textureId);
        glFinish();
    }
}

void loadModel(benchmark::State &state, const QString &path) {
    Md2Model model;
    for (auto _ : state) {
        if (!model.Load(path.toStdString(), {})) {
            state.SkipWithError("cannot load");
        }
    }
}

/// Into memory that is there already, unchecked.
void readAndConvert(benchmark::State &state, const QString &path) {
    std::vector<char> bytes;
    std::vector<Md2Vertex> vertices;
    for (auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            state.SkipWithError("cannot open");
            break;
        }
        bytes.resize(static_cast<std::size_t>(file.size()));
        file.read(bytes.data(), file.size());
        Md2Header header;
        std::memcpy(&header, bytes.data(), sizeof header);
        vertices.resize(static_cast<std::size_t>(header.frameCount) *
                        static_cast<std::size_t>(header.vertexCount));
        const char *at = bytes.data() + header.frameOffset;
        Md2Vertex *to = vertices.data();
        for (int frame = 0; frame < header.frameCount; ++frame) {
            Md2FrameHeader box;
            std::memcpy(&box, at, sizeof box);
            at += sizeof box;
            for (int i = 0; i < header.vertexCount; ++i, ++to, at += sizeof(Md2PackedVertex)) {
                Md2PackedVertex from;
                std::memcpy(&from, at, sizeof from);
                const Vec3 &normal = md2Normals[from.normal];
                *to = {{float(from.x * double{box.scale[0]} + box.translate[0]),
                        float(-(from.y * double{box.scale[1]} + box.translate[1])),
                        float(from.z * double{box.scale[2]} + box.translate[2] + 24)},
                       {normal.x, -normal.y, normal.z}};
            }
        }
        benchmark::DoNotOptimize(vertices.data());
    }
}

/// Keeps the shortest time of each benchmark while it reports.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        std::vector<Run> shown;
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration) {
                double &best = best_.try_emplace(run.run_name.function_name, 1e300).first->second;
                best = std::min(best, run.GetAdjustedRealTime());
            } else if (run.aggregate_name == "median") {
                shown.push_back(run);
            }
        }
        ConsoleReporter::ReportRuns(shown);
    }
    void printRatio(const char *what, const char *name, const char *floor, double limit) const {
        if (best_.count(name) == 0 || best_.count(floor) == 0) {
            return; // Left out on the command line.
        }
        std::printf("%s: %.2f (at most %.1f)\n", what, best_.at(name) / best_.at(floor), limit);
    }

private:
    std::map<std::string, double> best_;
};

bool write(const QString &path, const QByteArray &bytes) {
    if (!writeFile(path, bytes)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv) {
    prepareApplication();
    const QGuiApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("druvelk.textures=false"));
    QOpenGLContext context;
    context.setFormat(glSurfaceFormat());
    QOffscreenSurface surface;
    surface.setFormat(glSurfaceFormat());
    surface.create();
    if (!context.create() || !context.makeCurrent(&surface)) {
        std::fputs("no OpenGL\n", stderr);
        return 1;
    }
    // Filling pixels costs both sides the same and would only hide the difference.
    glEnable(GL_CULL_FACE);
    glCullFace(GL_FRONT_AND_BACK);

    const QTemporaryDir directory;
    const QString character = directory.filePath(QStringLiteral("character.md2"));
    const QString weapon = directory.filePath(QStringLiteral("weapon.md2"));
    const QString longModel = directory.filePath(QStringLiteral("long.md2"));
    if (!write(character, sheet(14, 25, 41)) || !write(weapon, sheet(5, 15, 41)) ||
        !write(longModel, sheet(14, 25, 200))) {
        return 1;
    }
    const auto add = [](const char *name, auto function, const auto &...files) {
        benchmark::RegisterBenchmark(name, function, files...)
            ->Repetitions(15)

            ->MinTime(0.1)
            ->UseRealTime();
    };
    add("animate", drawAnimated, character, weapon);
    add("issue", drawReady, character, weapon);
    add("load", loadModel, longModel);
    add("convert", readAndConvert, longModel);
    RatioReporter reporter;
    // Taken in turns, so that a busy machine slows both sides of a ratio.
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, interleave.data());
    int count = argc + 1;
    benchmark::Initialize(&count, arguments.data());
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatio("animating and issuing 700 triangles and a weapon / issuing them blended beforehand",
                        "animate", "issue", 1.5);
    reporter.printRatio("loading 200 frames / reading and converting them", "load", "convert", 2.0);
    return 0;
}
