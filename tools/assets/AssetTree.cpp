#include "tools/assets/AssetTree.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <atomic>
#include <thread>

namespace {

/// Name below the tree to the hash of its content.
using Record = QMap<QString, QByteArray>;

constexpr auto recordName = ".made";

QByteArray contentHash(const QString &path) {
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) {
        return {};
    }
    return hash.result().toHex();
}

Record readRecord(const QDir &tree) {
    Record record;
    QFile file(tree.filePath(QLatin1String(recordName)));
    if (file.open(QIODevice::ReadOnly)) {
        while (!file.atEnd()) {
            const QByteArray line = file.readLine().trimmed();
            const auto space = line.indexOf(' ');
            if (space > 0) {
                record.insert(QString::fromUtf8(line.mid(space + 1)), line.left(space));
            }
        }
    }
    return record;
}

bool writeRecord(const QDir &tree, const Record &record) {
    QSaveFile file(tree.filePath(QLatin1String(recordName)));
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    for (auto entry = record.cbegin(); entry != record.cend(); ++entry) {
        file.write(entry.value() + ' ' + entry.key().toUtf8() + '\n');
    }
    return file.commit();
}

/// Threads take the next job until there is none left. True when every job has succeeded.
bool runJobs(const std::vector<AssetJob> &jobs, const QDir &staging) {
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> good = true;
    const auto work = [&] {
        for (std::size_t i = next++; i < jobs.size(); i = next++) {
            if (!jobs[i].make(staging)) {
                qWarning().noquote() << "cannot make" << jobs[i].name;
                good = false;
            }
        }
    };
    std::vector<std::thread> threads;
    for (unsigned int i = 1; i < std::max(1U, std::thread::hardware_concurrency()); ++i) {
        threads.emplace_back(work);
    }
    work();
    for (std::thread &thread : threads) {
        thread.join();
    }
    return good;
}

/// Moves one made file to its place, unless what stands there is not what was `recorded`.
bool moveIntoPlace(const QString &made, const QString &place, const QByteArray &recorded) {
    if (QFile::exists(place)) {
        const QByteArray there = contentHash(place);
        if (there != recorded && there != contentHash(made)) {
            qInfo().noquote() << "keeping" << place << "because it was changed";
            return true;
        }
    }
    return QDir().mkpath(QFileInfo(place).path()) && (!QFile::exists(place) || QFile::remove(place)) &&
           QFile::rename(made, place);
}

} // namespace

bool makeAssetTree(const std::vector<AssetJob> &jobs, const QDir &output) {
    if (!output.mkpath(QStringLiteral("."))) {
        qWarning().noquote() << "cannot make the directory" << output.path();
        return false;
    }
    const QTemporaryDir stagingDir(output.filePath(QStringLiteral(".making-XXXXXX")));
    const QDir staging(stagingDir.path());
    if (!stagingDir.isValid() || !runJobs(jobs, staging)) {
        return false;
    }
    Record record = readRecord(output);
    QDirIterator files(staging.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString made = files.next();
        const QString name = staging.relativeFilePath(made);
        const QByteArray hash = contentHash(made);
        const QString place = output.filePath(name);
        if (!moveIntoPlace(made, place, record.value(name))) {
            qWarning().noquote() << "cannot write" << place;
            return false;
        }
        record.insert(name, hash);
    }
    return writeRecord(output, record);
}
