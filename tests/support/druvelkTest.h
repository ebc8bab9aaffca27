#pragma once

#include "environment/OpenGLSetup.h"

#include <QApplication>
#include <QtTest>

/// The main() of a test executable: like QTEST_MAIN, after the set-up that the editor's own main() does.
#define DRUVELK_TEST_MAIN(TestClass)                                                                         \
    int main(int argc, char **argv) {                                                                        \
        prepareApplication();                                                                                \
        QApplication application(argc, argv);                                                                \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
