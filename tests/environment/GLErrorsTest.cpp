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
    int mostAtOnce = 0;
    std::function<void()> whileOpen = [] {};

private:
    void look() {
        int open = 0;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            open += qobject_cast<QMessageBox *>(widget) != nullptr && widget->isVisible() ? 1 : 0;
        }
        mostAtOnce = std::max(mostAtOnce, open);
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box != nullptr) {
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
        glClear(GL_COLOR_BUFFER_BIT);
        for (const char *call : calls) {
            raiseInvalidEnum();
            checkGLError(call, "GL error");
        }
        checkGLError("nothing pending", "GL error");
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
        raiseInvalidEnum();
        checkGLError("call", "GL error");
        glLineWidth(-1);
        checkGLError("call", "GL error");
        glEnd();
        checkGLError("call", "GL error");
        glPopMatrix();
        checkGLError("call", "GL error");
        glPopMatrix();
        checkGLError(QByteArray("вызов").constData(), "other");
        while (glGetError() == GL_NO_ERROR) {
            glPushMatrix();
        }
        glPushMatrix();
        checkGLError("call", "GL error");
        checkGLError("call", "GL error");
        QCOMPARE(watcher.seen,
                 (QStringList{"GL error|call: invalid enum", "GL error|call: invalid value",
                              "GL error|call: invalid operation", "GL error|call: stack underflow",
                              QString::fromUtf8("other|вызов: stack underflow"),
                              "GL error|call: stack overflow"}));
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
        QCOMPARE(watcher.mostAtOnce, 1);

        watcher.seen.clear();
        watcher.whileOpen = [] {};
        beginGLErrorSetUp();
        view.calls = {"second"};
        view.grabFramebuffer();
        view.grabFramebuffer();
        QTRY_COMPARE(watcher.seen.size(), 1);
        QTest::qWait(60);
        QCOMPARE(watcher.seen, QStringList{"GL error|second: invalid enum"});
    }

    void errorsFromBeforeThePaintAreDropped() {
        BoxWatcher watcher;
        FailingView view;
        view.atStart = raiseInvalidEnum;
        beginGLErrorSetUp();
        view.grabFramebuffer();
        QTest::qWait(60);
        QVERIFY(watcher.seen.isEmpty());
    }
};

DRUVELK_TEST_MAIN(GLErrorsTest)
#include "GLErrorsTest.moc"
