#include "environment/BackgroundNode.h"
#include "environment/OffscreenView.h"
#include "support/druvelkTest.h"

namespace {

/// A vertex as OpenGL reports it, in world coordinates and with the transformed texture coordinates.
struct Vertex {
    float x;
    float y;
    float z;
    float s;
    float t;
};

struct Reported {
    QList<QList<Vertex>> polygons;
    QList<QList<Vertex>> lines;

    /// The smallest and largest x of everything filled.
    std::pair<float, float> extent() const {
        std::pair<float, float> result{1e9F, -1e9F};
        for (const auto &polygon : polygons) {
            for (const Vertex &vertex : polygon) {
                result = {std::min(result.first, vertex.x), std::max(result.second, vertex.x)};
            }
        }
        return result;
    }
};

constexpr float reach = 256; ///< Half the side of the world that lookDown shows.

/// Looks straight down on the world: x to the right, z down, `reach` units to each side.
void lookDown() {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    const GLdouble r = GLdouble(reach);
    glOrtho(-r, r, -r, r, -r, r);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glRotatef(90, 1, 0, 0);
}

/// Runs the drawing under lookDown() and collects what it sends.
template <typename Drawing>
Reported feedbackOf(Drawing drawing) {
    constexpr qsizetype floats = 12;
    QList<float> buffer(20000);
    glFeedbackBuffer(GLsizei(buffer.size()), GL_4D_COLOR_TEXTURE, buffer.data());
    glRenderMode(GL_FEEDBACK);
    lookDown();
    drawing();
    const GLint used = glRenderMode(GL_RENDER);
    constexpr float scale = 2 * reach / OffscreenView::side;
    Reported result;
    for (qsizetype at = 0; at < used;) {
        const auto token = GLenum(buffer[at++]);
        const bool filled = token == GL_POLYGON_TOKEN;
        const qsizetype count = filled ? qsizetype(buffer[at++]) : 2;
        QList<Vertex> vertices;
        for (qsizetype i = 0; i < count; ++i, at += floats) {
            const float *v = &buffer[at];
            vertices << Vertex{v[0] * scale - reach, reach - 2 * reach * v[2], reach - v[1] * scale, v[8],
                               v[9]};
        }
        (filled ? result.polygons : result.lines) << vertices;
    }
    return result;
}

/// Four quarters: red, green / blue, white.
QString quarters(const QString &directory) {
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const bool right = x >= 32;
            const bool low = y >= 32;
            image.setPixelColor(x, y, low ? (right ? Qt::white : Qt::blue) : (right ? Qt::green : Qt::red));
        }
    }
    const QString fileName = directory + QString::fromUtf8("/земля.png");
    image.save(fileName);
    return fileName;
}

/// Looks straight down on the ground frame's west edge at x = -96, 5 pixels a map unit.
void lookDownOnCorner() {
    lookDown();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(-100, -60, -40, 0, -100, 100);
    glMatrixMode(GL_MODELVIEW);
}

QColor cornerPixel(const QImage &picture, float x, float z) {
    return picture.pixelColor(int((x + 100) * 5), int(z * 5));
}

void lightFrom(float x, float y, float z) {
    const std::array<float, 4> direction{x, y, z, 0};
    glLightfv(GL_LIGHT0, GL_POSITION, direction.data());
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_NORMALIZE); // The ground list scales its normals.
}

/// Everything that a pass must leave as it was.
QList<int> stateNow() {
    QList<int> state;
    for (const int name :
         {GL_TEXTURE_2D, GL_LIGHTING, GL_NORMALIZE, GL_TEXTURE_CUBE_MAP_ARB, GL_BLEND, GL_TEXTURE_GEN_S,
          GL_TEXTURE_GEN_T, GL_TEXTURE_GEN_R, GL_CULL_FACE, GL_DEPTH_WRITEMASK, GL_MATRIX_MODE,
          GL_MODELVIEW_STACK_DEPTH, GL_TEXTURE_STACK_DEPTH, GL_ATTRIB_STACK_DEPTH, GL_TEXTURE_BINDING_2D}) {
        GLint value = 0;
        glGetIntegerv(GLenum(name), &value);
        state << value;
    }
    Matrix4 view;
    readModelview(view);
    for (const float value : view.m) {
        state << qRound(value * 1000);
    }
    return state;
}

} // namespace

class SurroundingsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        view = std::make_unique<OffscreenView>();
        node = std::make_unique<BackgroundNode>();
        node->fog = true;
        node->setMapSize(4, 64);
    }

    void cleanup() {
        QCOMPARE(glGetError(), GLenum{GL_NO_ERROR});
        node.reset();
        view.reset();
    }

    void frameLiesFlatUnderTheOutline() {
        node->initGL();
        const Reported seen = feedbackOf([this] { node->draw(0); });
        const auto [first, last] = seen.extent();
        QVERIFY(std::abs(first - -96) < 0.1F && std::abs(last - 160) < 0.1F);
        for (const auto &polygon : seen.polygons) {
            for (const Vertex &vertex : polygon) {
                QVERIFY(std::abs(vertex.y) < 0.01F);
            }
        }
        const std::array<QPointF, 5> corners{
            {{-0.25, -0.25}, {-0.25, 64}, {64, 64}, {64, -0.25}, {-0.25, -0.25}}};
        QCOMPARE(seen.lines.size(), 4);
        for (std::size_t i = 0; i < 8; ++i) {
            const Vertex &vertex = seen.lines[qsizetype(i / 2)][qsizetype(i % 2)];
            const QPointF off = QPointF(double(vertex.x), double(vertex.z)) - corners[i / 2 + i % 2];
            QVERIFY(off.manhattanLength() < 0.1 && std::abs(vertex.y - 0.5F) < 0.01F);
        }
    }

    void waterCoversTheSquare() {
        const QTemporaryDir scratch;
        node->setWaterTexture(quarters(scratch.path())); // Without a picture there are no coordinates.
        // Even, odd, and an empty grid, which has the surroundings of the usual map.
        for (const auto &[density, dimension, middle] :
             {std::tuple(4, 64, 32.0F), {4, 63, 31.0F}, {0, 40, 30.0F}, {2, 0, 30.0F}}) {
            node->setMapSize(density, dimension);
            node->initGL();
            feedbackOf([this] { node->draw(0); });
            const Reported water = feedbackOf([this] { node->drawSecondPass(0); });
            const auto [first, last] = water.extent();
            QVERIFY(std::abs(first - -1) < 0.1F && std::abs(last - (2 * middle + 1)) < 0.1F);
            for (const auto &polygon : water.polygons) {
                for (const Vertex &vertex : polygon) {
                    QVERIFY(std::abs(vertex.y + 0.3F) < 0.01F);
                    // Five repeats, turned by a quarter: up in the picture is along x.
                    QVERIFY(std::abs(vertex.t - (vertex.x > middle ? 5 : 0)) < 0.01F);
                    QVERIFY(std::abs(vertex.s - (vertex.z > middle ? -5 : 0)) < 0.01F);
                }
            }
        }
    }

    void waterSwitchedOffLeavesCullingAlone() {
        node->water = false;
        node->initGL();
        node->draw(0);
        glDisable(GL_CULL_FACE);
        QVERIFY(feedbackOf([this] { node->drawSecondPass(0); }).polygons.isEmpty());
        QVERIFY(!glIsEnabled(GL_CULL_FACE));
        node->water = true;
        QVERIFY(feedbackOf([this] { node->drawSecondPass(0); }).polygons.isEmpty());
        QVERIFY(glIsEnabled(GL_CULL_FACE));
    }

    void passesRestoreTheState() {
        node->fog = false;
        node->initGL();
        lookDown();
        glEnable(GL_CULL_FACE);
        glEnable(GL_NORMALIZE);
        glEnable(GL_LIGHTING);
        glBindTexture(GL_TEXTURE_2D, 0);
        const QList<int> before = stateNow();
        node->draw(0);
        QCOMPARE(stateNow(), before);
        std::array<float, 4> color{};
        glGetFloatv(GL_CURRENT_COLOR, color.data());
        QCOMPARE(color, (std::array<float, 4>{1, 1, 1, 1}));
        node->drawSecondPass(0);
        glBindTexture(GL_TEXTURE_2D, 0);
        QCOMPARE(stateNow(), before);
    }

    void groundIsTexturedLitAndPlainWithoutItsPicture() {
        const QTemporaryDir scratch;
        node->setGroundTexture(quarters(scratch.path()));
        node->groundColor = {1, 0.5F, 1};
        node->initGL();
        const GLuint name = node->groundTextureObject;
        // The ambient light comes on top. A repeat is 19.2 wide and 12.8 high here; its picture's right edge
        // is at the smallest z.
        QCOMPARE(cornerPixel(groundLitFrom(0, 1, 0), -92, 3), QColor(255, 153, 255));
        QCOMPARE(cornerPixel(groundLitFrom(0, 1, 0), -82, 3), QColor(0, 153, 0));
        QCOMPARE(cornerPixel(groundLitFrom(0, 1, 0), -92, 9), QColor(0, 0, 255));
        QVERIFY(cornerPixel(groundLitFrom(1, 0, 0), -92, 3).red() < 80);

        node->setGroundTexture(scratch.path() + "/missing.png");
        node->initGL();
        QCOMPARE(node->groundTextureObject, name);
        const QImage plain = groundLitFrom(0, 1, 0);
        for (const float x : {-92.0F, -82.0F, -70.0F}) {
            QCOMPARE(cornerPixel(plain, x, 9), QColor(255, 153, 255));
        }
        QVERIFY(cornerPixel(groundLitFrom(1, 0, 0), -92, 3).red() < 80);
    }

    void destructionFreesOwnNamesOnly() {
        const GLuint foreign = glGenLists(3);
        for (GLuint list = foreign; list < foreign + 3; ++list) {
            glNewList(list, GL_COMPILE);
            glEndList();
        }
        QCOMPARE(foreign, 1U);
        node.reset(); // Never set up: it owns nothing.
        QVERIFY(glIsList(1) && glIsList(2));
        node = std::make_unique<BackgroundNode>();
        node->initGL();
        const GLuint list = node->firstList;
        QVERIFY(glIsList(list + 2));
        node.reset();
        QVERIFY(!glIsList(list) && !glIsList(list + 2));
        QVERIFY(glIsList(1) && glIsList(2));

        node = std::make_unique<BackgroundNode>();
        node->initGL();
        const GLuint kept = node->firstList;
        view->context.doneCurrent();
        node.reset();
        QVERIFY(view->context.makeCurrent(&view->surface));
        QVERIFY(glIsList(kept));
    }

private:
    QImage groundLitFrom(float x, float y, float z) {
        view->clear();
        lookDownOnCorner();
        lightFrom(x, y, z);
        node->draw(0);
        return view->picture();
    }

    std::unique_ptr<OffscreenView> view;
    std::unique_ptr<BackgroundNode> node;
};

DRUVELK_TEST_MAIN(SurroundingsTest)
#include "SurroundingsTest.moc"
