#include "environment/OffscreenView.h"
#include "models/Md2Builder.h"
#include "models/Md2Model.h"
#include "support/druvelkTest.h"

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <limits>

/// In frame f of the test's model, the left edge is at x = f: of a square made of a strip and, below it,
/// of one made of a fan. A unit is four pixels wide.
class Md2DrawTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("druvelk.textures=false")); }

    void init() {
        model.reset();
        view.reset();
        view = std::make_unique<OffscreenView>();
        glOrtho(0, 50, -200, 0, -500, 500);
        view->clear();
        // Red and green above blue and white.
        QImage skin(64, 64, QImage::Format_RGB32);
        for (int pixel = 0; pixel < 64 * 64; ++pixel) {
            const std::array colours{qRgb(250, 0, 0), qRgb(0, 250, 0), qRgb(0, 0, 250), qRgb(250, 250, 250)};
            const int quarter = pixel % 64 / 32 + pixel / 2048 * 2;
            skin.setPixel(pixel % 64, pixel / 64, colours[std::size_t(quarter)]);
        }
        const QString file = directory.filePath(QStringLiteral("model.md2"));
        QVERIFY(writeFile(file, squares().bytes()) &&
                skin.save(directory.filePath(QStringLiteral("skin.png"))));
        model = std::make_unique<Md2Model>();
        QVERIFY(model->Load(file.toStdString(), directory.filePath("skin.pcx").toStdString()));
        model->speed = 2;
        model->endFrame = 39;
    }

    void showsTheFrameOfTheTime() {
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

    void clampsWhatTheModelDoesNotHave() {
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
        model->DrawFrames(0, 0, 0);
        QCOMPARE(leftEdge(), -1000.0F);
    }

    void drawsStripsAndFans() {
        model->DrawFrames(2, 5, 0.25F);
        const QImage picture = view->picture();
        // y points down because the file's axes are of the other hand.
        for (const int top : {0, 100}) {
            const auto at = [&](int x, int y) { return picture.pixelColor(11 + x, top + y); };
            QVERIFY(closeTo(at(40, 20), QColor(250, 0, 0)) && closeTo(at(120, 20), QColor(0, 250, 0)));
            QVERIFY(closeTo(at(40, 60), QColor(0, 0, 250)) && closeTo(at(120, 60), QColor(250, 250, 250)));
            QVERIFY(at(-1, 40) == Qt::magenta && at(0, 40) != Qt::magenta);
            QVERIFY(at(159, 79) != Qt::magenta && at(160, 40) == Qt::magenta && at(40, 80) == Qt::magenta);
        }
        // For those who light it: the normals are blended too.
        std::array<float, 4> normal{};
        glGetFloatv(GL_CURRENT_NORMAL, normal.data());
        QCOMPARE(normal[0], 0.75F * -0.525731F + 0.25F * -0.442863F);
        QCOMPARE(normal[1], 0.25F * -0.238856F);
    }

    void makesANewTextureForContextsThatDoNotKnowIt() {
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
        int width = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
        QCOMPARE(width, 64);

        model.reset();
        QVERIFY(!glIsTexture(own));
        QVERIFY(view->context.makeCurrent(&view->surface));
        QVERIFY(glIsTexture(first)); // Only the contexts that know a name may free it.
    }

private:
    /// Where the model begins in the view, that is the frame shown; -1000 where nothing is drawn.
    float leftEdge() {
        const QImage picture = view->picture();
        view->clear();
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, 40) != qRgb(255, 0, 255)) {
                return float(x) / 4;
            }
        }
        return -1000;
    }
    float shownAt(float time) {
        model->Animate(time);
        return leftEdge();
    }

    static Md2Builder squares() {
        Md2Builder builder;
        builder.addTriangle({0, 1, 2, 0, 0, 0});
        for (int frame = 0; frame < 41; ++frame) {
            const auto normal = static_cast<std::uint8_t>(frame % 2);
            builder.addFrame({1, 1, 0}, {float(frame), 0, -24}, "f",
                             {0, 0,   0, normal, 40, 0,   0, normal, 0, 80,  0, normal, 40, 80,  0, normal,
                              0, 100, 0, normal, 40, 100, 0, normal, 0, 180, 0, normal, 40, 180, 0, normal});
        }
        builder.addRun(4);
        for (const int corner : {0, 1, 2, 3}) {
            builder.addVertex(float(corner % 2), corner < 2 ? 0.0F : 1.0F, corner);
        }
        builder.addRun(-4);
        for (const int corner : {0, 1, 3, 2}) {
            builder.addVertex(float(corner % 2), corner < 2 ? 0.0F : 1.0F, 4 + corner);
        }
        builder.addRun(0);
        return builder;
    }

    QTemporaryDir directory;
    std::unique_ptr<OffscreenView> view;
    std::unique_ptr<Md2Model> model;
};

DRUVELK_TEST_MAIN(Md2DrawTest)
#include "Md2DrawTest.moc"
