#include "scene/CISG.h"

#include "scene/LevelScan.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QStringDecoder>
#include <QTextStream>
#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(levelLog, "druvelk.level")

/// All of a level, in a piece of the size the device says it has. Of one that is too long as much
/// as shows it: the scan refuses it.
QByteArray allOf(QIODevice &device) {
    QByteArray bytes;
    while (bytes.size() <= mostLevelBytes) {
        const qint64 room = mostLevelBytes + 1 - bytes.size();
        const QByteArray piece = device.read(std::clamp<qint64>(device.bytesAvailable(), 1, room));
        if (piece.isEmpty()) {
            break;
        }
        bytes += piece;
    }
    return bytes;
}

/// The bytes as UTF-8, or as Latin-1 where they are not. The reader is given text, never bytes:
/// so it reads exactly what was scanned, whatever encoding the file claims.
QString decoded(const QByteArray &bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

} // namespace

std::unique_ptr<SceneNode> CISG::createNode(const QString &tag) {
    if (tag == QLatin1String("CISGGroup")) {
        return std::make_unique<CISGGroup>();
    }
    return nullptr;
}

bool CISG::load(const QString &fileName) {
    QFile file(fileName);
    // A FIFO would keep the editor waiting for its other end.
    const bool regular = QFileInfo(fileName).isFile();
    if (!regular || !file.open(QIODevice::ReadOnly)) {
        qCWarning(levelLog) << "cannot open" << fileName << "-"
                            << (regular ? qPrintable(file.errorString()) : "there is no such file");
        return false;
    }
    return read(file);
}

bool CISG::read(QIODevice &device) {
    terrainPointsLeft = mostTerrainPoints;
    const QByteArray bytes = allOf(device);
    if (!levelIsSafeToParse(bytes)) {
        qCWarning(levelLog) << "the level is refused: it is too large, too deep, or declares entities";
        return false;
    }
    QDomDocument document;
    QString error;
    int line = 0;
    if (!document.setContent(decoded(bytes), &error, &line)) {
        qCWarning(levelLog) << "not well-formed, line" << line << error;
        return false;
    }
    if (document.documentElement().tagName() != QLatin1String("CISG")) {
        return false;
    }
    const QDomElement group = document.documentElement().firstChild().toElement();
    if (group.tagName() != QLatin1String("CISGGroup")) {
        return false;
    }
    return root.readXml(group, this);
}

void CISG::write(QTextStream &out) const {
    out << "<CISG>\n";
    root.writeXml(out);
    out << "</CISG>\n";
}

bool CISG::takeTerrainPoints(std::int64_t count) {
    if (count > terrainPointsLeft) {
        return false;
    }
    terrainPointsLeft -= count;
    return true;
}
