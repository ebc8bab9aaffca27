#include "environment/PathLookup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace {

/// Directories followed at once where names differ only in case; keeps a contrived tree from
/// multiplying them.
constexpr qsizetype mostCandidates = 64;

/// The longest path the system opens, in bytes. Looking up a longer one would take minutes.
constexpr qsizetype longestPath = 4096;

/// The entries of a directory that spell `name`: first as asked, then the others in order.
QStringList spellings(const QString &directory, const QString &name) {
    if (name == QLatin1String("..")) {
        return {name};
    }
    QStringList found;
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QStringList entries =
        QDir(directory.isEmpty() ? QStringLiteral(".") : directory).entryList(all, QDir::NoSort);
    for (const QString &entry : entries) {
        if (entry != name && entry.compare(name, Qt::CaseInsensitive) == 0) {
            found += entry;
        }
    }
    std::sort(found.begin(), found.end());
    if (QFileInfo::exists(directory + name)) {
        found.prepend(name);
    }
    return found;
}

} // namespace

QString existingPath(const QString &path) {
    if (path.isEmpty() || QFile::encodeName(path).size() > longestPath || QFileInfo::exists(path)) {
        return path;
    }
    QStringList candidates{path.startsWith(QLatin1Char('/')) ? QStringLiteral("/") : QString()};
    for (const QString &part : path.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        if (part == QLatin1String(".")) {
            continue;
        }
        QStringList next;
        for (const QString &directory : std::as_const(candidates)) {
            for (const QString &name : spellings(directory, part)) {
                next += directory + name + QLatin1Char('/');
            }
        }
        candidates = next.mid(0, mostCandidates);
    }
    if (candidates.isEmpty() || candidates.first().size() < 2) {
        return path;
    }
    return candidates.first().chopped(1);
}
