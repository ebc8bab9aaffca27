#include "environment/SharedTextures.h"
#include "environment/BackgroundNode.h"
#include "environment/CubeMapSupport.h"
#include "environment/MipmappedTexture.h"
#include "environment/OffscreenView.h"
#include "map/MeshNode.h"
#include "support/druvelkTest.h"
#include "support/peakMemory.h"

#include <GL/glext.h>
#include <sys/stat.h>

namespace {

/// The files that were opened, and those that could not be read, since the last look.
QStringList opened;
QStringList unreadable;

void record(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (QLatin1String(context.category) == QLatin1String("druvelk.textures")) {
        (type == QtDebugMsg ? opened : unreadable)
            << text.section(QLatin1Char('/'), -1).chopped(1); // the quote that escaped names end with
    }
}

/// The first texel of a texture's level 0.
QColor texel(GLuint name, GLenum binding = GL_TEXTURE_2D, GLenum target = GL_TEXTURE_2D) {
    std::vector<unsigned char> bytes(std::size_t{4} * 64 * 64);
    glBindTexture(binding, name);
    glGetTexImage(target, 0, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
    return {bytes[0], bytes[1], bytes[2]};
}

} // namespace

class SharedTexturesTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        view = std::make_unique<OffscreenView>();
        scratch = std::make_unique<QTemporaryDir>();
        for (const QString &name : names) {
            paint(name, Qt::blue);
        }
        node = std::make_unique<BackgroundNode>();
        terrain = std::make_unique<MeshNode>();
        terrain->texture = file("ground.png");
        point(*node);
        QLoggingCategory::setFilterRules(QStringLiteral("druvelk.textures.debug=true"));
        qInstallMessageHandler(record);
        setUp();
    }

    void cleanup() {
        qInstallMessageHandler(nullptr);
        QCOMPARE(glGetError(), GLenum{GL_NO_ERROR});
        terrain.reset();
        node.reset();
        view.reset();
    }

    void aSetUpReadsOnlyWhatChanged() {
        // The terrain shows the ground's picture: one file, one texture.
        QCOMPARE(opened.size(), cubeMapsAvailable() ? 8 : 6);
        QCOMPARE(terrain->textureObject, node->groundTextureObject);
        setUp();
        QCOMPARE(opened, QStringList());
        for (const QString &name : names) {
            const bool used = cubeMapsAvailable() || !name.contains(QLatin1String("y.png"));
            paint(name, Qt::red);
            setUp();
            QCOMPARE(opened, used ? QStringList(name) : QStringList());
        }
        QCOMPARE(texel(node->groundTextureObject), QColor(Qt::red));
        QCOMPARE(texel(node->waterTextureObject), QColor(Qt::red));
        for (GLenum face = GL_TEXTURE_CUBE_MAP_POSITIVE_X; face <= GL_TEXTURE_CUBE_MAP_NEGATIVE_Z; ++face) {
            QCOMPARE(cubeMapsAvailable() ? texel(node->skyTextures.cubeMap, GL_TEXTURE_CUBE_MAP, face)
                                         : texel(node->skyTextures.faces[4]),
                     QColor(Qt::red));
        }
        paint("other.png", Qt::green);
        node->setGroundTexture(file("other.png"));
        setUp();
        QCOMPARE(opened, QStringList("other.png"));
        QCOMPARE(texel(node->groundTextureObject), QColor(Qt::green));
        QCOMPARE(texel(terrain->textureObject), QColor(Qt::red));
    }

    void aMissingPictureIsNamedOnceAndLookedForAgain() {
        for (const char *name : {"ground.png", "mount_negz.png"}) {
            QVERIFY(QFile::remove(file(name)));
            for (int i = 0; i < 2; ++i) {
                setUp();
                QCOMPARE(unreadable, QStringList(name));
            }
            paint(name, Qt::red);
            setUp();
            QVERIFY(unreadable.isEmpty() && opened.contains(name));
        }
        QCOMPARE(texel(terrain->textureObject), QColor(Qt::red));
        QVERIFY(QImage(8, 4, QImage::Format_RGB32).save(file("mount_negx.png")));
        unreadable.clear();
        node->initGL();
        node->initGL();
        forgetReportedPictures();
        QCOMPARE(unreadable, cubeMapsAvailable() ? QStringList("mount_negx.png") : QStringList());
    }

    void manyNodesHoldAPictureOnce() {
        QVERIFY(QFile::link(scratch->path(), file("link")));
        std::vector<std::unique_ptr<BackgroundNode>> others;
        for (int i = 0; i < 30; ++i) {
            others.push_back(std::make_unique<BackgroundNode>());
            point(*others.back(), i % 2 == 0 ? QString() : QStringLiteral("link/"));
            others.back()->initGL();
            QCOMPARE(others.back()->groundTextureObject, terrain->textureObject);
            QCOMPARE(others.back()->skyTextures.cubeMap, node->skyTextures.cubeMap);
            QCOMPARE(others.back()->skyTextures.faces, node->skyTextures.faces);
        }
        const GLuint ground = terrain->textureObject;
        const GLuint water = node->waterTextureObject;
        const GLuint sky = node->skyTextures.cubeMap + node->skyTextures.faces[0];
        terrain.reset();
        node.reset();
        others.resize(1);
        QVERIFY(glIsTexture(ground) && glIsTexture(water) && glIsTexture(sky));
        others.clear();
        QVERIFY(!glIsTexture(ground) && !glIsTexture(water) && !glIsTexture(sky));
    }

    void onlyFilesOfAReasonableSizeAreRead() {
        QCOMPARE(mkfifo(qPrintable(file("fifo.png")), 0600), 0);
        QVERIFY(readGLImage(file("fifo.png")).isNull());
        QVERIFY(readGLImage(scratch->path()).isNull());
        QFile huge(file("huge.pbm"));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.write("P4 30000 30000\n") > 0);
        QVERIFY(huge.resize(huge.pos() + qint64{30000} * 3750));
        huge.close();
        const PeakMemory memory;
        QVERIFY(readGLImage(huge.fileName()).isNull());
        QVERIFY(memory.growthInMiB() < 50);
    }

    void freedPicturesGoBackToTheSystem() {
        const PeakMemory memory;
        std::vector<std::pair<QImage, QByteArray>> held;
        for (int i = 0; i < 40; ++i) {
            QImage(1024, 1024, QImage::Format_RGB32).fill(Qt::red);
            held.emplace_back(QImage(1024, 1024, QImage::Format_RGB32), QByteArray(100'000, 'b'));
            held.back().first.fill(Qt::red);
        }
        for (auto &[picture, between] : held) {
            picture = {};
        }
        const PeakMemory peakFromNowOn;
        QVERIFY(memory.growthInMiB() < 40);
    }

    void aPictureLargerThanTheDriverTakesIsScaled() {
        GLint largest = 0;
        glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
        QVERIFY(QImage(largest * 2, 2, QImage::Format_RGB32).save(file("long.png")));
        GLuint name = 0;
        loadMipmappedTexture(name, file("long.png"));
        GLint width = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
        QVERIFY(width > 0 && width <= largest);
        releaseTexture(name);
    }

private:
    QString file(const QString &name) const { return scratch->filePath(name); }

    /// Writes the picture, newer than the one before.
    void paint(const QString &name, QColor color) {
        QImage image(32, 32, QImage::Format_RGB32);
        image.fill(color);
        QVERIFY(image.save(file(name)));
        QFile written(file(name));
        QVERIFY(written.open(QIODevice::ReadWrite));
        QVERIFY(written.setFileTime(QDateTime::currentDateTime().addSecs(++paintings),
                                    QFileDevice::FileModificationTime));
    }

    void point(BackgroundNode &to, const QString &folder = {}) const {
        to.setGroundTexture(file(folder + "ground.png"));
        to.setWaterTexture(file(folder + "water.png"));
        to.setCubeTexture(file(folder + "mount.png"));
    }

    void setUp() {
        opened.clear();
        unreadable.clear();
        node->initGL();
        terrain->initGL();
        forgetReportedPictures();
    }

    const QStringList names{"ground.png",     "water.png",      "mount_negx.png", "mount_posx.png",
                            "mount_negy.png", "mount_posy.png", "mount_negz.png", "mount_posz.png"};
    std::unique_ptr<OffscreenView> view;
    std::unique_ptr<QTemporaryDir> scratch;
    std::unique_ptr<BackgroundNode> node;
    std::unique_ptr<MeshNode> terrain;
    int paintings = 0;
};

DRUVELK_TEST_MAIN(SharedTexturesTest)
#include "SharedTexturesTest.moc"
