#include "tests/support/own_surroundings.h"
#include "tests/support/scripted_dialogs.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const quillon::test::OwnSurroundings surroundings;
    QCoreApplication application(argc, argv);
    // Nobody is there to answer what no test expects: it fails the test.
    const quillon::test::ScriptedDialogs unexpected;
    return RUN_ALL_TESTS();
}
