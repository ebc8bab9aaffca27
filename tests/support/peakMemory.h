#pragma once

#include <QByteArray>
#include <QFile>

/// How far the process's memory grew, at most, since this was made; always 0 where the system
/// does not tell, and under the address sanitizer, which keeps what was freed.
class PeakMemory {
public:
    PeakMemory() {
        QFile reset(QStringLiteral("/proc/self/clear_refs"));
        if (reset.open(QIODevice::WriteOnly)) {
            reset.write("5");
        }
    }

    qint64 growthInMiB() const {
#ifdef __SANITIZE_ADDRESS__
        return 0;
#else
        return (peakInKiB() - before) / 1024;
#endif
    }

private:
    static qint64 peakInKiB() {
        QFile status(QStringLiteral("/proc/self/status"));
        if (!status.open(QIODevice::ReadOnly)) {
            return 0;
        }
        const QByteArray text = status.readAll();
        const QByteArray number = text.mid(text.indexOf("VmHWM:") + 6).trimmed();
        return number.first(number.indexOf(' ')).toLongLong();
    }

    qint64 before = peakInKiB();
};
