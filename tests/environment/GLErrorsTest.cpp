#include "environment/GLErrors.h"
#include "environment/OffscreenView.h"
#include "support/druvelkTest.h"

#include <QMessageBox>
#include <QOpenGLWidget>
#include <QTimer>

namespace {

void raiseInvalidEnum() {
    glEnable(0xFFFF);
}

/// Closes every message box that opens, and keeps what it said.
class BoxWatcher : public QObject {
public:
    BoxWatcher() {
        connect(&timer, &QTimer::timeout, this, &BoxWatcher::look);
        timer.start(5);
    }

    QStringList seen;
    std::function<void()> whileOpen = [] {};

private:
    void look() {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            seen << box->windowTitle() + "|" + box->text();
            whileOpen();
            box->accept();
        }
    }

    QTimer timer;
};

class FailingView : public QOpenGLWidget {
public:
    std::function<void()> atStart = [] {};
    QList<const char *> calls;

protected:
    void paintGL() override {
        atStart();
        const GLErrorPaintScope scope;
        checkGLError("nothing pending", "GL error");
        for (const char *call : calls) {
            raiseInvalidEnum();
            checkGLError(call, "GL error");
        }
    }
};

} // namespace

class GLErrorsTest : public QObject {
    Q_OBJECT

private slots:
    void namesTheErrorAtOnce() {
        const OffscreenView view;
        BoxWatcher watcher;
        checkGLError("quiet", "GL error");
        for (const auto &cause :
             std::vector<std::function<void()>>{raiseInvalidEnum, [] { glLineWidth(-1); }, glEnd, glPopMatrix,
                                                [] {
                                                    for (int i = 0; i < 1000; ++i) {
                                                        glPushMatrix();
                                                    }
                                                }}) {
            cause();
            checkGLError(QByteArray("вызов").constData(), "GL error");
            checkGLError("again", "GL error");
        }
        const QStringList names{"invalid enum", "invalid value", "invalid operation", "stack underflow",
                                "stack overflow"};
        QCOMPARE(watcher.seen,
                 QStringList(names).replaceInStrings(QRegularExpression("^"), "GL error|вызов: "));
    }

    void paintsQueueEachTextOncePerSetUp() {
        BoxWatcher watcher;
        FailingView view;
        view.calls = {"first", "second", "first"};
        QVERIFY(!view.grabFramebuffer().isNull());
        QVERIFY(watcher.seen.isEmpty()); // The paint is over, and no box has opened in it.
        // A box lets further paints run, which add to the queue while it is being worked off.
        watcher.whileOpen = [&view] {
            view.calls = {"third", "second"};
            view.grabFramebuffer();
        };
        QTRY_COMPARE(watcher.seen.size(), 3);
        QTest::qWait(60);
        QCOMPARE(watcher.seen, (QStringList{"GL error|first: invalid enum", "GL error|second: invalid enum",
                                            "GL error|third: invalid enum"}));

        watcher.seen.clear();
        watcher.whileOpen = [] {};
        beginGLErrorSetUp();
        view.calls = {"second"};
        view.atStart = raiseInvalidEnum; // What was there before the paint is dropped.
        view.grabFramebuffer();
        view.grabFramebuffer();
        QTRY_COMPARE(watcher.seen.size(), 1);
        QTest::qWait(60);
        QCOMPARE(watcher.seen, QStringList{"GL error|second: invalid enum"});
    }
};

DRUVELK_TEST_MAIN(GLErrorsTest)
#include "GLErrorsTest.moc"
