#include "models/Md2Builder.h"
#include "models/Md2Model.h"
#include "support/druvelkTest.h"

#include <GL/gl.h>
#include <QLoggingCategory>
#include <QOffscreenSurface>
#include <QOpenGLContext>
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
            // x y z w, r g b a, s t r q; the window is 1000 wide and high and shows -500 to 500.
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
    void initTestCase();
    void init();
    void showsTheFrameOfTheTime_data();
    void showsTheFrameOfTheTime();
    void clampsWhatTheModelDoesNotHave();
    void drawsStripsAndFans();
    void blendsNormalsToo();
    void makesANewTextureForContextsThatDoNotKnowIt();

private:
    std::string writeModel(const Md2Builder &builder) {
        const QString path = directory_.filePath(QStringLiteral("model.md2"));
        return writeFile(path, builder.bytes()) ? path.toStdString() : std::string();
    }
    /// Where the model's first corner is after a step to `time`, that is the frame shown.
    float shownAt(float time) {
        const std::vector<Polygon> polygons = drawnBy([&] { model_->Animate(time); });
        return polygons.empty() ? -1000.0F : polygons.front().front().x;
    }
    static Md2Builder squares();
    static void setUpWindow();

    QTemporaryDir directory_;
    QOffscreenSurface surface_;
    QOpenGLContext context_;
    std::unique_ptr<Md2Model> model_;
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

void Md2DrawTest::setUpWindow() {
    glViewport(0, 0, 1000, 1000);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(-500, 500, -500, 500, -500, 500);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void Md2DrawTest::initTestCase() {
    context_.setFormat(glSurfaceFormat());
    QLoggingCategory::setFilterRules(QStringLiteral("druvelk.textures=false"));
    QVERIFY(context_.create());
    surface_.setFormat(context_.format());
    surface_.create();
    QVERIFY(context_.makeCurrent(&surface_));
    setUpWindow();
}

void Md2DrawTest::init() {
    QVERIFY(context_.makeCurrent(&surface_));
    model_ = std::make_unique<Md2Model>();
    QVERIFY(model_->Load(writeModel(squares()), directory_.filePath("none.png").toStdString()));
    model_->speed = 2;
    model_->endFrame = 39;
}

void Md2DrawTest::showsTheFrameOfTheTime_data() {
    QTest::addColumn<float>("position");
    QTest::addColumn<float>("time");
    QTest::addColumn<float>("positionAfter");
    QTest::addColumn<float>("shown");
    QTest::newRow("a whole frame") << 0.0F << 0.5F << 1.0F << 1.0F;
    QTest::newRow("half way to the next") << 0.0F << 1.25F << 2.5F << 2.5F;
    QTest::newRow("from the last to the first") << 0.0F << 19.75F << 39.5F << 19.5F;
    QTest::newRow("wrapped") << 40.0F << 0.125F << 0.25F << 0.25F;
    QTest::newRow("one past the end is not wrapped") << 0.0F << 20.0F << 40.0F << 40.0F;
    QTest::newRow("many ranges at once") << 0.0F << 100.0F << 40.0F << 40.0F;
    QTest::newRow("ranges beyond counting") << 0.0F << 1e15F << 0.0F << 0.0F;
    QTest::newRow("a clock that broke") << 0.0F << std::numeric_limits<float>::infinity() << 0.0F << 0.0F;
    QTest::newRow("before the first frame") << -3.5F << 0.5F << -2.5F << 0.0F;
}

void Md2DrawTest::showsTheFrameOfTheTime() {
    QFETCH(float, position);
    QFETCH(float, time);
    QFETCH(float, positionAfter);
    QFETCH(float, shown);
    model_->framePosition = position;
    const float corner = shownAt(time);
    if (time < 1e6F) {
        QCOMPARE(model_->framePosition, positionAfter);
        QCOMPARE(corner, shown);
    } else {
        QVERIFY(model_->framePosition >= 0 && model_->framePosition <= 40);
        QVERIFY(corner >= 0 && corner <= 40);
    }
    QCOMPARE(model_->lastTime, time);
}

void Md2DrawTest::clampsWhatTheModelDoesNotHave() {
    model_->startFrame = 60;
    model_->endFrame = 70;
    model_->framePosition = 65;
    QCOMPARE(shownAt(0), 40.0F);

    model_->startFrame = 7;
    model_->endFrame = 3;
    QCOMPARE(shownAt(1.3F), 7.0F);

    model_->startFrame = std::numeric_limits<int>::min();
    model_->endFrame = std::numeric_limits<int>::max();
    model_->framePosition = 3e9F;
    QVERIFY(shownAt(2) >= 0);

    model_->frames.clear();
    QVERIFY(drawnBy([&] { model_->DrawFrames(0, 0, 0); }).empty());
}

void Md2DrawTest::drawsStripsAndFans() {
    const std::vector<Polygon> polygons = drawnBy([&] { model_->DrawFrames(2, 4, 0.25F); });
    // x and s, t of each corner; y points down because the file's axes are of the other hand.
    QCOMPARE(polygons.size(), 4U);
    const Corner a{2.5F, 0, 0, 1};
    const Corner b{102.5F, 0, 1, 1};
    const Corner c{2.5F, -100, 0, 0.75F};
    const Corner d{102.5F, -100, 1, 0.75F};
    const auto corners = [](const Polygon &polygon, std::initializer_list<Corner> expected) {
        return std::is_permutation(polygon.begin(), polygon.end(), expected.begin(), expected.end());
    };
    QVERIFY(corners(polygons[0], {a, b, c}));
    QVERIFY(corners(polygons[1], {b, c, d}));
    const auto middle = [](Corner corner) { return Corner{corner.x, corner.y, 0.5F, 0.5F}; };
    QVERIFY(corners(polygons[2], {middle(a), middle(b), middle(d)}));
    QVERIFY(corners(polygons[3], {middle(a), middle(d), middle(c)}));
    QVERIFY(glIsEnabled(GL_TEXTURE_2D));

    model_->glCommands.front() = 0;
    glBindTexture(GL_TEXTURE_2D, 0);
    QVERIFY(drawnBy([&] { model_->DrawFrames(0, 1, 0); }).empty());
    int bound = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    QVERIFY(bound != 0 && bound == int(model_->textureId));
}

void Md2DrawTest::blendsNormalsToo() {
    model_->DrawFrames(0, 1, 0.25F);
    std::array<float, 4> normal{};
    std::array<float, 4> colour{};
    glGetFloatv(GL_CURRENT_NORMAL, normal.data());
    glGetFloatv(GL_CURRENT_COLOR, colour.data());
    QCOMPARE(normal[0], 0.75F * -0.525731F + 0.25F * -0.442863F);
    QCOMPARE(normal[1], 0.25F * -0.238856F);
    QCOMPARE(normal[2], 0.75F * 0.850651F + 0.25F * 0.864188F);
    QCOMPARE(colour, (std::array<float, 4>{1, 1, 1, 1}));
}

void Md2DrawTest::makesANewTextureForContextsThatDoNotKnowIt() {
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(QColor(200, 10, 10));
    QVERIFY(image.save(directory_.filePath(QStringLiteral("skin.png"))));
    model_->skinPath = directory_.filePath("skin.pcx").toStdString();
    model_->LoadSkin();
    const unsigned int first = model_->textureId;
    model_->LoadSkin();
    QCOMPARE(model_->textureId, first);

    QOpenGLContext stranger;
    stranger.setFormat(glSurfaceFormat());
    stranger.setShareContext(nullptr);
    QVERIFY(stranger.create());
    QVERIFY(stranger.makeCurrent(&surface_));
    QVERIFY(!QOpenGLContext::areSharing(&stranger, &context_));
    // Someone else's textures, the name among them.
    std::array<unsigned int, 64> names{};
    glGenTextures(GLsizei(names.size()), names.data());
    for (const unsigned int name : names) {
        glBindTexture(GL_TEXTURE_2D, name);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 64, 64, 0, GL_RGB, GL_UNSIGNED_BYTE, nullptr);
    }
    QVERIFY(std::find(names.begin(), names.end(), first) != names.end());
    model_->DrawFrames(0, 0, 0);
    QVERIFY(std::find(names.begin(), names.end(), model_->textureId) == names.end());
    std::array<unsigned char, 4 * 4 * 4> pixels{};
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    QCOMPARE(int(pixels[0]), 200);

    const unsigned int own = model_->textureId;
    model_.reset();
    QVERIFY(!glIsTexture(own));
    QVERIFY(context_.makeCurrent(&surface_));
    QVERIFY(glIsTexture(first)); // Only the contexts that know a name may free it.
}

DRUVELK_TEST_MAIN(Md2DrawTest)
#include "Md2DrawTest.moc"
