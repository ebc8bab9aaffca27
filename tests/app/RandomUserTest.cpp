#include "RandomUser.h"

#include <QProcess>
#include <numeric>

namespace {

/// The test library ends a function after five minutes; a long walk takes longer.
const bool mayTakeLong = qputenv("QTEST_FUNCTION_TIMEOUT", "100000000");

QList<int> numbersOf(const char *variable) {
    QList<int> numbers;
    for (const QByteArray &number : qgetenv(variable).split(',')) {
        numbers.append(number.toInt());
    }
    return numbers;
}

QByteArray joined(const QList<int> &numbers) {
    QByteArrayList texts;
    for (const int number : numbers) {
        texts.append(QByteArray::number(number));
    }
    return texts.join(',');
}

/// Whether a process of its own fails too that does only these actions.
bool stillFails(const QList<int> &actions) {
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DRUVELK_ONLY"), QString::fromLatin1(joined(actions)));
    environment.remove(QStringLiteral("DRUVELK_SHORTEN"));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {});
    child.waitForFinished(-1);
    return child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0;
}

/// Leaves out ever smaller pieces as long as the rest fails.
QList<int> shortened(QList<int> actions) {
    for (qsizetype piece = actions.size() / 2; piece > 0; piece /= 2) {
        for (qsizetype from = 0; from < actions.size();) {
            QList<int> rest = actions;
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

/// DRUVELK_SEED and DRUVELK_ACTIONS (how many) choose a run; DRUVELK_ONLY=3,17 does only some of
/// its actions; with DRUVELK_SHORTEN set, the fewest are sought that still fail.
class RandomUserTest : public QObject {
    Q_OBJECT

private slots:
    void nothingTheUserDoesBreaksTheEditor() {
        const auto seed = qEnvironmentVariableIntValue("DRUVELK_SEED");
        const int count = qEnvironmentVariableIsSet("DRUVELK_ACTIONS")
                              ? qEnvironmentVariableIntValue("DRUVELK_ACTIONS")
                              : 2000;
        QList<int> actions = numbersOf("DRUVELK_ONLY");
        if (!qEnvironmentVariableIsSet("DRUVELK_ONLY")) {
            actions.resize(count);
            std::iota(actions.begin(), actions.end(), 0);
        }
        if (qEnvironmentVariableIsSet("DRUVELK_SHORTEN")) {
            QFAIL("These fail: DRUVELK_ONLY=" + joined(shortened(actions)));
        }
        RandomUser user(static_cast<quint32>(seed));
        for (const int number : actions) {
            const QByteArray fault = user.act(number);
            std::fprintf(stderr, "%d: %s\n", number, user.lastAction().constData());
            QVERIFY2(fault.isEmpty(), fault + " after action " + QByteArray::number(number) + " of seed " +
                                          QByteArray::number(seed) + ": " + user.lastAction());
        }
    }
};

DRUVELK_TEST_MAIN(RandomUserTest)
#include "RandomUserTest.moc"
