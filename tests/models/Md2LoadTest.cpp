#include "models/Md2Checks.h"
#include "models/Md2Decoder.h"
#include "models/Md2Model.h"
#include "support/druvelkTest.h"
#include "support/randomSeed.h"

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <cstdio>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool operator==(const Vec3 &a, const Vec3 &b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// What loading writes to the process's standard output.
QByteArray outputOfLoad(Md2Model &model, const std::string &path, bool expected) {
    QTemporaryFile file;
    std::fflush(stdout);
    const int kept = dup(STDOUT_FILENO);
    if (!file.open() || dup2(file.handle(), STDOUT_FILENO) < 0) {
        return "cannot redirect";
    }
    const bool loaded = model.Load(path, "new skin");
    std::fflush(stdout);
    dup2(kept, STDOUT_FILENO);
    close(kept);
    file.seek(0);
    return loaded == expected ? file.readAll() : "the wrong result";
}

Md2Builder smallModel() {
    Md2Builder model;
    model.skins = QByteArray("skin.pcx").leftJustified(64, '\0') + QByteArray(64, 'x');
    for (const std::uint32_t coordinate : {7U, 9U, 0xFFFFU, 3U}) {
        append16(model.texCoords, coordinate);
    }
    model.addTriangle({0, 1, 2, 1, 0, 1});
    model.addFrame({0.5F, 0.25F, 2}, {1, 2, 3}, "stand01", {0, 0, 0, 0, 10, 20, 30, 1, 255, 255, 255, 161});
    model.addFrame({1, 1, 1}, {0, 0, 0}, "sixteen letters!", {1, 2, 3, 5, 4, 5, 6, 5, 7, 8, 9, 5});
    model.addRun(-3);
    model.addVertex(0, 0.25F, 0);
    model.addVertex(0.5F, 1, 1);
    model.addVertex(1, 0, 2);
    model.addRun(0);
    return model;
}

/// Whether a model's lists are as long as those of the small model.
bool hasAllLists(const Md2Content &model) {
    return model.skinNames.size() == 2 && model.texCoords.size() == 2 && model.triangles.size() == 1 &&
           model.glCommands.size() == 11 && model.frames.size() == 2 && model.frames[0].vertices.size() == 3;
}

} // namespace

class Md2LoadTest : public QObject {
    Q_OBJECT

private slots:
    // The test's own log would go to standard output with the warnings in it.
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("druvelk.models=false")); }

    void decodesEveryRecord() {
        Md2Model model;
        QCOMPARE(outputOfLoad(model, file(smallModel().bytes()), true), QByteArray());

        QCOMPARE(model.skinNames, (std::vector<std::string>{"skin.pcx", std::string(64, 'x')}));
        QVERIFY(hasAllLists(model));
        QVERIFY(model.texCoords[1].s == -1 && model.texCoords[1].t == 3);
        QVERIFY(model.triangles[0].vertices[2] == 2 && model.triangles[0].texCoords[0] == 1);
        QCOMPARE(model.glCommands[0], -3);
        QCOMPARE(model.frames[0].name, std::string("stand01"));
        QCOMPARE(model.frames[1].name, std::string("sixteen letters!"));
        const std::vector<Md2Vertex> &vertices = model.frames[0].vertices;
        QVERIFY(vertices[0].position == (Vec3{1, -2, 27}));
        QVERIFY(vertices[0].normal == (Vec3{-0.525731F, 0, 0.850651F}));
        QVERIFY(vertices[2].position == (Vec3{128.5F, -65.75F, 537}));
        QVERIFY(vertices[2].normal == (Vec3{-0.688191F, 0.587785F, -0.425325F}));
        QCOMPARE(model.header.skinHeight, 32);
    }

    void aRefusedFileLeavesTheModel() {
        QByteArray otherVersion = smallModel().bytes();
        patch32(otherVersion, Md2Builder::Version, 7);
        const QByteArray picture = QByteArray("\x89PNG\r\n\x1a\n").leftJustified(200, 'p');
        for (const QByteArray &bytes : {picture, otherVersion, smallModel().bytes().chopped(1)}) {
            Md2Model model;
            QVERIFY(model.Load(file(smallModel().bytes()), "old skin"));
            QCOMPARE(outputOfLoad(model, file(bytes), false), QByteArray("Bad header for MD2 file.\n"));
            QVERIFY(hasAllLists(model) && model.frames[0].vertices[1].position == (Vec3{6, -7, 87}));
            QCOMPARE(model.skinPath, std::string("new skin"));
            QCOMPARE(std::memcmp(&model.header, bytes.constData(), sizeof model.header), 0);
        }
    }

    /// Cut anywhere, and with any numbers in it.
    void readsOnlyWhatCanBeDrawn() {
        const QByteArray good = smallModel().bytes();
        for (qsizetype size = 0; size < good.size(); ++size) {
            QVERIFY2(!Md2Decoder(good.first(size)).check(), QByteArray::number(size));
        }
        QRandomGenerator random(randomSeed());
        int loaded = 0;
        for (int i = 0; i < 100000; ++i) {
            QByteArray bytes = good;
            for (auto changes = random.bounded(1, 4); changes > 0; --changes) {
                // Times 64, 12 or 4, the multiples of 2²⁶ are small again where numbers have 32 bits. The
                // last are the largest float and more.
                const std::array numbers{random.bounded(4U), random.bounded(quint32(good.size() + 9)),
                                         0U - random.bounded(9U), 0x04000000U * random.bounded(64U),
                                         0x7F7FFFFFU + random.bounded(3U)};
                // As often in the header as behind it.
                const int words = i % 2 == 0 ? int(sizeof(Md2Header)) / 4 : int(good.size()) / 4;
                patch32(bytes, 4 * random.bounded(5, words), numbers[random.generate() % numbers.size()]);
            }
            Md2Decoder decoder(bytes);
            if (decoder.check()) {
                Md2Content content;
                decoder.decode(content);
                QVERIFY2(listsLieInside(bytes) && isDrawable(content, decoder.header.vertexCount),
                         bytes.toHex());
                ++loaded;
            }
        }
        QVERIFY2(loaded > 1000, QByteArray::number(loaded));
    }

    void isSilentAboutAFileThatCannotBeOpened() {
        Md2Model model;
        QCOMPARE(outputOfLoad(model, directory_.filePath("none.md2").toStdString(), false), QByteArray());
        QCOMPARE(outputOfLoad(model, directory_.path().toStdString(), false), QByteArray());
        const std::string fifo = directory_.filePath("fifo").toStdString();
        QCOMPARE(mkfifo(fifo.c_str(), 0600), 0);
        QCOMPARE(outputOfLoad(model, fifo, false), QByteArray());
        QCOMPARE(model.skinPath, std::string("new skin"));
    }

    void acceptsWhatIsOnlyUnusual() {
        Md2Builder builder = smallModel();
        builder.triangles.clear();
        builder.skins.clear();
        builder.words.chop(4); // The list ends without a count of 0.
        QByteArray bytes = builder.bytes() + "further bytes";
        patch32(bytes, Md2Builder::SkinsAt, 0xFFFFFFFF); // Of an empty list.
        patch32(bytes, 16, 1);                           // The frame size plays no part.
        Md2Model model;
        QVERIFY(model.Load(file(bytes), {}));
        QVERIFY(model.triangles.empty());
        QCOMPARE(model.frames.size(), 2U);
        model.lastTime = 3;
        model.Animate(4); // Without triangles it is not loaded: no OpenGL, no step.
        QCOMPARE(model.lastTime, 3.0F);

        // Found in spite of its capitals.
        QDir(directory_.path()).mkpath(QStringLiteral("Rat"));
        QVERIFY(writeFile(directory_.filePath("Rat/Small gun.md2"), bytes));
        QVERIFY(model.Load(directory_.filePath("rat/small Gun.MD2").toStdString(), {}));
    }

private:
    std::string file(const QByteArray &bytes) {
        const QString path = directory_.filePath(QStringLiteral("model.md2"));
        return writeFile(path, bytes) ? path.toStdString() : std::string();
    }

    QTemporaryDir directory_;
};

DRUVELK_TEST_MAIN(Md2LoadTest)
#include "Md2LoadTest.moc"
