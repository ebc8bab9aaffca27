#include "app/HeldMessages.h"

#include <QList>
#include <QString>
#include <cstdio>
#include <cstdlib>

namespace {

struct Message {
    QtMsgType type;
    const char *category; ///< A literal of the toolkit's.
    QString text;
};

struct Hold {
    QtMessageHandler usual = nullptr;
    QList<Message> messages;
};

Hold &hold() {
    static Hold held;
    return held;
}

void keep(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (type == QtFatalMsg) {
        printCannotStart("there is no display (see DISPLAY, WAYLAND_DISPLAY and QT_QPA_PLATFORM)");
        std::_Exit(1);
    }
    if (type == QtDebugMsg) {
        // Asked for, to find out why.
        hold().usual(type, context, text);
    } else {
        hold().messages.append({type, context.category, text});
    }
}

} // namespace

HeldMessages::HeldMessages() {
    hold().usual = qInstallMessageHandler(keep);
}

HeldMessages::~HeldMessages() {
    qInstallMessageHandler(nullptr);
}

void HeldMessages::release() {
    qInstallMessageHandler(nullptr);
    for (const Message &message : std::exchange(hold().messages, {})) {
        hold().usual(message.type, QMessageLogContext(nullptr, 0, nullptr, message.category), message.text);
    }
}

void printCannotStart(const char *why) {
    std::fprintf(stderr, "druvelk-editor: cannot start: %s\n", why);
}
