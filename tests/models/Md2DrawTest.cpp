#include "environment/OffscreenView.h"
#include "models/Md2Builder.h"
#include "models/Md2Model.h"
#include "support/druvelkTest.h"

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <cmath>
#include <limits>

namespace {

struct Corner {
    float x, y, s, t;
    bool operator==(const Corner &) const = default;
};

using Polygon = std::vector<Corner>;

/// What a call draws, as OpenGL hands it back instead of rasterising: positions in model units.
template <typename Call>
std::vector<Polygon> drawnBy(Call call) {
    std::vector<float> buffer(4096);
    glFeedbackBuffer(static_cast<GLsizei>(buffer.size()), GL_4D_COLOR_TEXTURE, buffer.data());
    glRenderMode(GL_FEEDBACK);
    call();
    const int used = glRenderMode(GL_RENDER);
    std::vector<Polygon> polygons;
    const auto rounded = [](float number) { return std::round(number * 1000) / 1000; };
    for (const float *at = buffer.data(), *end = at + used; at < end;) {
        if (*at++ != GL_POLYGON_TOKEN) {
            return {};
        }
        Polygon polygon(static_cast<std::size_t>(*at++));
        for (Corner &corner : polygon) {
            // x y z w, r g b a, s t r q; the window shows 0 in its middle.
            corner = {rounded(at[0] - 500), rounded(at[1] - 500), rounded(at[8]), rounded(at[9])};
            at += 12;
        }
        polygons.push_back(polygon);
    }
    return polygons;
}

} // namespace

/// Frame f of the test's model is a square with its lower left corner at x = f.
class Md2DrawTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("druvelk.textures=false")); }
    void init();
    void showsTheFrameOfTheTime();
    void clampsWhatTheModelDoesNotHave();
    void drawsStripsAndFans();
    void makesANewTextureForContextsThatDoNotKnowIt();

private:
    /// Where the model's first corner is after a step to `time`, that is the frame shown.
    float shownAt(float time) {
        const std::vector<Polygon> polygons = drawnBy([&] { model->Animate(time); });
        return polygons.empty() ? -1000.0F : polygons.front().front().x;
    }
    static Md2Builder squares();

    QTemporaryDir directory;
    std::unique_ptr<OffscreenView> view;
    std::unique_ptr<Md2Model> model;
};

Md2Builder Md2DrawTest::squares() {
    Md2Builder builder;
    builder.addTriangle({0, 1, 2, 0, 0, 0});
    for (int frame = 0; frame < 41; ++frame) {
        const auto normal = static_cast<std::uint8_t>(frame % 2);
        builder.addFrame({1, 1, 0}, {float(frame), 0, -24}, "f",
                         {0, 0, 0, normal, 100, 0, 0, normal, 0, 100, 0, normal, 100, 100, 0, normal});
    }
    builder.addRun(4);
    builder.addVertex(0, 0, 0);
    builder.addVertex(1, 0, 1);
    builder.addVertex(0, 0.25F, 2);
    builder.addVertex(1, 0.25F, 3);
    builder.addRun(-4);
    for (const int vertex : {0, 1, 3, 2}) {
        builder.addVertex(0.5F, 0.5F, vertex);
    }
    builder.addRun(0);
    return builder;
}

void Md2DrawTest::init() {
    model.reset();
    view = std::make_unique<OffscreenView>();
    glViewport(0, 0, 1000, 1000);
    glOrtho(-500, 500, -500, 500, -500, 500);
    model = std::make_unique<Md2Model>();
    const QString file = directory.filePath(QStringLiteral("model.md2"));
    QVERIFY(writeFile(file, squares().bytes()) && model->Load(file.toStdString(), "none.png"));
    model->speed = 2;
    model->endFrame = 39;
}

void Md2DrawTest::showsTheFrameOfTheTime() {
    const std::vector<std::array<float, 4>> steps{
        {0, 0.5F, 1, 1},            // a whole frame
        {0, 1.25F, 2.5F, 2.5F},     // half way to the next
        {0, 19.75F, 39.5F, 19.5F},  // from the last to the first
        {40, 0.125F, 0.25F, 0.25F}, // wrapped
        {0, 20, 40, 40},            // one past the end is not wrapped
        {0, 100, 40, 40},           // many ranges at once
        {-3.5F, 0.5F, -2.5F, 0},    // before the first frame
    };
    for (const auto &[position, time, positionAfter, shown] : steps) {
        model->framePosition = position;
        model->lastTime = 0;
        QCOMPARE(shownAt(time), shown);
        QCOMPARE(model->framePosition, positionAfter);
    }
    // Ranges beyond counting, and a clock that broke.
    for (const float time : {1e15F, std::numeric_limits<float>::infinity()}) {
        const float corner = shownAt(time);
        QVERIFY(model->framePosition >= 0 && model->framePosition <= 40 && corner >= 0 && corner <= 40);
    }
}

void Md2DrawTest::clampsWhatTheModelDoesNotHave() {
    model->startFrame = 60;
    model->endFrame = 70;
    model->framePosition = 65;
    QCOMPARE(shownAt(0), 40.0F);

    model->startFrame = 7;
    model->endFrame = 3;
    QCOMPARE(shownAt(1.3F), 7.0F);

    model->startFrame = std::numeric_limits<int>::min();
    model->endFrame = std::numeric_limits<int>::max();
    model->framePosition = 3e9F;
    QVERIFY(shownAt(2) >= 0);

    model->frames.clear();
    QVERIFY(drawnBy([&] { model->DrawFrames(0, 0, 0); }).empty());
}

void Md2DrawTest::drawsStripsAndFans() {
    const std::vector<Polygon> polygons = drawnBy([&] { model->DrawFrames(2, 5, 0.25F); });
    // x and s, t of each corner; y points down because the file's axes are of the other hand.
    QCOMPARE(polygons.size(), 4U);
    const Corner a{2.75F, 0, 0, 1};
    const Corner b{102.75F, 0, 1, 1};
    const Corner c{2.75F, -100, 0, 0.75F};
    const Corner d{102.75F, -100, 1, 0.75F};
    const auto corners = [](const Polygon &polygon, std::initializer_list<Corner> expected) {
        return std::is_permutation(polygon.begin(), polygon.end(), expected.begin(), expected.end());
    };
    QVERIFY(corners(polygons[0], {a, b, c}));
    QVERIFY(corners(polygons[1], {b, c, d}));
    const auto middle = [](Corner corner) { return Corner{corner.x, corner.y, 0.5F, 0.5F}; };
    QVERIFY(corners(polygons[2], {middle(a), middle(b), middle(d)}));
    QVERIFY(corners(polygons[3], {middle(a), middle(d), middle(c)}));
    // For those who light it: the normals are blended too.
    std::array<float, 4> normal{};
    glGetFloatv(GL_CURRENT_NORMAL, normal.data());
    QCOMPARE(normal[0], 0.75F * -0.525731F + 0.25F * -0.442863F);
    QCOMPARE(normal[1], 0.25F * -0.238856F);
}

void Md2DrawTest::makesANewTextureForContextsThatDoNotKnowIt() {
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(QColor(200, 10, 10));
    QVERIFY(image.save(directory.filePath(QStringLiteral("skin.png"))));
    model->skinPath = directory.filePath("skin.pcx").toStdString();
    model->LoadSkin();
    const unsigned int first = model->textureId;
    model->LoadSkin();
    QCOMPARE(model->textureId, first);

    OffscreenView stranger;
    QVERIFY(!QOpenGLContext::areSharing(&stranger.context, &view->context));
    // Someone else's textures, the name among them.
    std::array<unsigned int, 64> names{};
    glGenTextures(GLsizei(names.size()), names.data());
    QVERIFY(std::find(names.begin(), names.end(), first) != names.end());
    model->DrawFrames(0, 0, 0);
    const unsigned int own = model->textureId;
    QVERIFY(std::find(names.begin(), names.end(), own) == names.end());
    std::array<unsigned char, 4 * 4 * 4> pixels{};
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    QCOMPARE(int(pixels[0]), 200);

    model.reset();
    QVERIFY(!glIsTexture(own));
    QVERIFY(view->context.makeCurrent(&view->surface));
    QVERIFY(glIsTexture(first)); // Only the contexts that know a name may free it.
}

DRUVELK_TEST_MAIN(Md2DrawTest)
#include "Md2DrawTest.moc"
