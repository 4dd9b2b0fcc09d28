#include "tests/support/own_surroundings.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/scripted_printer.h"
#include "view/browser/browser_profile.h"
#include "view/controls/application.h"

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const quillon::test::OwnSurroundings surroundings;
    quillon::browser::prepareBrowser();
    quillon::controls::Application application(argc, argv);
    // Nobody is there to close a box that no test expects: it fails the test and does not open.
    const quillon::test::ScriptedDialogs unexpected;
    const quillon::test::ScriptedPrinter unexpectedPrinter;
    return RUN_ALL_TESTS();
}
