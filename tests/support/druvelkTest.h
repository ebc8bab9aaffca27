#pragma once

#include "environment/OpenGLSetup.h"

#include <QApplication>
#include <QtTest>

#ifdef __SANITIZE_ADDRESS__
/// Keeps plugins and drivers loaded until the leak check has run: it can name, and tests/lsan.supp
/// can know, only what is still there.
extern "C" [[gnu::weak]] int dlclose(void *) noexcept {
    return 0;
}
#endif

/// The main() of a test executable: like QTEST_MAIN, after the set-up that the editor's own main() does.
#define DRUVELK_TEST_MAIN(TestClass)                                                                         \
    int main(int argc, char **argv) {                                                                        \
        prepareApplication();                                                                                \
        QApplication application(argc, argv);                                                                \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
