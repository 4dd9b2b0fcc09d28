#include "platform/controls/browser_profile.h"
#include "platform/controls/error_boundary.h"
#include "tests/support/own_surroundings.h"
#include "tests/support/scripted_dialogs.h"

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const quillon::test::OwnSurroundings surroundings;
    quillon::controls::prepareBrowser();
    quillon::controls::Application application(argc, argv);
    // Nobody is there to close a box that no test expects: it fails the test and does not open.
    const quillon::test::ScriptedDialogs unexpected;
    return RUN_ALL_TESTS();
}
