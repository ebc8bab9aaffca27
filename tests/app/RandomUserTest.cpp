#include "RandomUser.h"

#include <QProcess>

namespace {

/// The test library ends a function after five minutes; a long walk takes longer.
const bool mayTakeLong = qputenv("QTEST_FUNCTION_TIMEOUT", "100000000");

/// Whether a process of its own fails too that does only these actions.
bool stillFails(const QByteArrayList &actions) {
    qputenv("DRUVELK_ONLY", actions.join(','));
    qunsetenv("DRUVELK_SHORTEN");
    return QProcess::execute(QCoreApplication::applicationFilePath(), {}) != 0;
}

/// Leaves out ever smaller pieces as long as the rest fails.
QByteArrayList shortened(QByteArrayList actions) {
    for (qsizetype piece = actions.size() / 2; piece > 0; piece /= 2) {
        for (qsizetype from = 0; from < actions.size();) {
            QByteArrayList rest = actions;
            rest.remove(from, std::min(piece, actions.size() - from));
            if (!rest.isEmpty() && stillFails(rest)) {
                actions = rest;
            } else {
                from += piece;
            }
        }
    }
    return actions;
}

} // namespace

/// DRUVELK_SEED and DRUVELK_ACTIONS (how many, 500 else) choose a run; DRUVELK_ONLY=3,17 does only some of
/// its actions; with DRUVELK_SHORTEN set, the fewest are sought that still fail.
class RandomUserTest : public QObject {
    Q_OBJECT

private slots:
    void nothingTheUserDoesBreaksTheEditor() {
        const auto seed = static_cast<quint32>(qEnvironmentVariableIntValue("DRUVELK_SEED"));
        const QByteArray count = qgetenv("DRUVELK_ACTIONS");
        QByteArrayList actions = qgetenv("DRUVELK_ONLY").split(',');
        if (!qEnvironmentVariableIsSet("DRUVELK_ONLY")) {
            actions.clear();
            for (int i = 0; i < (count.isEmpty() ? 500 : count.toInt()); ++i) {
                actions.append(QByteArray::number(i));
            }
        }
        if (qEnvironmentVariableIsSet("DRUVELK_SHORTEN")) {
            QFAIL("These fail: DRUVELK_ONLY=" + shortened(actions).join(','));
        }
        RandomUser user(seed);
        for (const QByteArray &number : actions) {
            const QByteArray fault = user.act(number.toInt());
            std::fprintf(stderr, "%s: %s\n", number.constData(), user.lastAction().constData());
            QVERIFY2(fault.isEmpty(),
                     fault + " after action " + number + " of seed " + QByteArray::number(seed));
        }
    }
};

DRUVELK_TEST_MAIN(RandomUserTest)
#include "RandomUserTest.moc"
