#include "models/Md2Builder.h"
#include "models/Md2Model.h"
#include "support/druvelkTest.h"

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <cmath>
#include <cstdio>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QByteArray complaint = "Bad header for MD2 file.\n";

bool operator==(const Vec3 &a, const Vec3 &b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// What a call writes to the process's standard output.
template <typename Call>
QByteArray standardOutputOf(const QString &scratch, Call call) {
    std::fflush(stdout);
    const int kept = dup(STDOUT_FILENO);
    QFile file(scratch);
    if (!file.open(QIODevice::WriteOnly) || dup2(file.handle(), STDOUT_FILENO) < 0) {
        return "cannot redirect";
    }
    call();
    std::fflush(stdout);
    dup2(kept, STDOUT_FILENO);
    close(kept);
    file.close();
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "cannot read back";
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

} // namespace

class Md2LoadTest : public QObject {
    Q_OBJECT

private slots:
    // The test's own log would go to standard output with the warnings in it.
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("druvelk.models=false")); }
    void decodesEveryRecord();
    void keepsItsListsWhenAFileIsRejected_data();
    void keepsItsListsWhenAFileIsRejected();
    void rejectsEveryTruncation();
    void isSilentAboutAFileThatCannotBeOpened();
    void acceptsWhatIsOnlyUnusual();

private:
    std::string file(const QByteArray &bytes) {
        const QString path = directory_.filePath(QStringLiteral("model.md2"));
        return writeFile(path, bytes) ? path.toStdString() : std::string();
    }
    QByteArray outputOfLoad(Md2Model &model, const std::string &path, bool expected) {
        return standardOutputOf(directory_.filePath(QStringLiteral("stdout")),
                                [&] { QCOMPARE(model.Load(path, "new skin"), expected); });
    }

    QTemporaryDir directory_;
};

void Md2LoadTest::decodesEveryRecord() {
    Md2Model model;
    model.textureId = 5;
    QCOMPARE(outputOfLoad(model, file(smallModel().bytes()), true), QByteArray());

    QCOMPARE(model.skinNames, (std::vector<std::string>{"skin.pcx", std::string(64, 'x')}));
    QCOMPARE(model.texCoords.size(), 2U);
    QCOMPARE(model.texCoords[1].s, std::int16_t{-1});
    QCOMPARE(model.texCoords[1].t, std::int16_t{3});
    QCOMPARE(model.triangles.size(), 1U);
    QCOMPARE(model.triangles[0].vertices[2], std::uint16_t{2});
    QCOMPARE(model.triangles[0].texCoords[0], std::uint16_t{1});
    QCOMPARE(model.glCommands.size(), 11U);
    QCOMPARE(model.glCommands[0], -3);

    QCOMPARE(model.frames.size(), 2U);
    QCOMPARE(model.frames[0].name, std::string("stand01"));
    QCOMPARE(model.frames[1].name, std::string("sixteen letters!"));
    const std::vector<Md2Vertex> &vertices = model.frames[0].vertices;
    QCOMPARE(vertices.size(), 3U);
    QVERIFY(vertices[0].position == (Vec3{1, -2, 27}));
    QVERIFY(vertices[0].normal == (Vec3{-0.525731F, 0, 0.850651F}));
    QVERIFY(vertices[1].position == (Vec3{6, -7, 87}));
    QVERIFY(vertices[1].normal == (Vec3{-0.442863F, -0.238856F, 0.864188F}));
    QVERIFY(vertices[2].position == (Vec3{128.5F, -65.75F, 537}));
    QVERIFY(vertices[2].normal == (Vec3{-0.688191F, 0.587785F, -0.425325F}));

    QCOMPARE(model.header.version, 8);
    QCOMPARE(model.header.skinHeight, 32);
    QCOMPARE(model.textureId, 5U);
    model.textureId = 0;
}

void Md2LoadTest::keepsItsListsWhenAFileIsRejected_data() {
    QTest::addColumn<QByteArray>("bytes");
    using B = Md2Builder;
    const Md2Builder sound = smallModel();
    const QByteArray good = sound.bytes();
    const auto patched = [&](const char *name, qsizetype at, std::uint32_t word) {
        QByteArray bytes = good;
        patch32(bytes, at, word);
        QTest::newRow(name) << bytes;
    };
    QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n").leftJustified(200, 'p');
    patched("version 7", B::Version, 7);
    for (const int field : {B::Skins, B::Vertices, B::TexCoords, B::Triangles, B::Words, B::Frames}) {
        patched(qPrintable(QStringLiteral("negative count at %1").arg(field)), field, 0xFFFFFFFF);
        patched(qPrintable(QStringLiteral("huge count at %1").arg(field)), field, 0x7FFFFFFF);
        // Multiplied in 32 bits, 64 × 2^26, 4 × 2^30 and 12 × 2^30 are 0.
        patched(qPrintable(QStringLiteral("count that wraps at %1").arg(field)), field, 0x40000000);
    }
    for (const int field : {B::SkinsAt, B::TexCoordsAt, B::TrianglesAt, B::FramesAt, B::WordsAt}) {
        patched(qPrintable(QStringLiteral("negative offset at %1").arg(field)), field, 0x80000000);
        patched(qPrintable(QStringLiteral("offset past the end at %1").arg(field)), field, 0x7FFFFFF0);
        patched(qPrintable(QStringLiteral("offset in the header at %1").arg(field)), field, 16);
    }
    const qsizetype frames = good.size() - sound.words.size() - sound.frames.size();
    const qsizetype words = good.size() - sound.words.size();
    const auto bits = [](float number) { return std::bit_cast<std::uint32_t>(number); };
    patched("scale not a number", frames, bits(std::nanf("")));
    patched("translate infinite", frames + 20, bits(std::numeric_limits<float>::infinity()));
    patched("coordinate overflows", frames + 8, bits(3e38F));
    patched("normal 162", frames + 40, 162U << 24U);
    patched("run longer than the list", words, 4);
    patched("run of the least number", words, 0x80000000);
    patched("vertex index too large", words + 12, 3);
    patched("vertex index negative", words + 12, 0xFFFFFFFF);
    patched("texture coordinate not a number", words + 8, bits(std::nanf("")));
}

void Md2LoadTest::keepsItsListsWhenAFileIsRejected() {
    QFETCH(QByteArray, bytes);
    Md2Model model;
    QVERIFY(model.Load(file(smallModel().bytes()), "old skin"));
    QCOMPARE(outputOfLoad(model, file(bytes), false), complaint);

    QCOMPARE(model.skinNames.size(), 2U);
    QCOMPARE(model.texCoords.size(), 2U);
    QCOMPARE(model.triangles.size(), 1U);
    QCOMPARE(model.glCommands.size(), 11U);
    QCOMPARE(model.frames.size(), 2U);
    QVERIFY(model.frames[0].vertices[1].position == (Vec3{6, -7, 87}));
    QCOMPARE(model.skinPath, std::string("new skin"));
    QCOMPARE(std::memcmp(&model.header, bytes.constData(), sizeof model.header), 0);
}

void Md2LoadTest::rejectsEveryTruncation() {
    const QByteArray good = smallModel().bytes();
    for (qsizetype size = 0; size < good.size(); ++size) {
        Md2Model model;
        const QByteArray output = outputOfLoad(model, file(good.left(size)), false);
        QVERIFY2(output == complaint, qPrintable(QString::number(size)));
        QVERIFY(model.triangles.empty() && model.frames.empty());
    }
}

void Md2LoadTest::isSilentAboutAFileThatCannotBeOpened() {
    Md2Model model;
    QCOMPARE(outputOfLoad(model, directory_.filePath("none.md2").toStdString(), false), QByteArray());
    QCOMPARE(outputOfLoad(model, directory_.path().toStdString(), false), QByteArray());
    const std::string fifo = directory_.filePath("fifo").toStdString();
    QCOMPARE(mkfifo(fifo.c_str(), 0600), 0);
    QCOMPARE(outputOfLoad(model, fifo, false), QByteArray());
    QCOMPARE(model.skinPath, std::string("new skin"));
}

void Md2LoadTest::acceptsWhatIsOnlyUnusual() {
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

DRUVELK_TEST_MAIN(Md2LoadTest)
#include "Md2LoadTest.moc"
