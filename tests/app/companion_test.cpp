#include "app/companion/window_register.h"

#include <gtest/gtest.h>
#include <set>

namespace quillon::companion {

namespace {

class FakeDesktop : public Desktop {
public:
    std::set<WindowHandle> living = {1, 2, 3, 0xFFFFFFFE};
    std::set<WindowHandle> hidden;
    QRect area{100, 20, 901, 700};
    std::vector<WindowHandle> asked;
    std::vector<std::pair<WindowHandle, QRect>> placed;

    bool exists(WindowHandle window) override { return living.contains(window); }
    bool isOpen(WindowHandle window) override { return !hidden.contains(window); }
    QRect areaFor(const std::vector<WindowHandle> &windows) override {
        asked = windows;
        return area;
    }
    void place(WindowHandle window, const QRect &place) override {
        placed.emplace_back(window, place);
    }
};

class CompanionTest : public testing::Test {
protected:
    void execute(std::initializer_list<const char *> commands) {
        for (const char *command : commands)
            windows.execute(QString::fromLatin1(command));
    }

    FakeDesktop desktop;
    WindowRegister windows{desktop};
};

TEST_F(CompanionTest, TilesWindowsSideBySideInTheOrderTheyCame) {
    desktop.hidden = {3};
    execute({"ADD 2", "ADD 1", "ADD 3", "ADD 2", "TILE_VERTICAL"});
    EXPECT_EQ(desktop.asked, (std::vector<WindowHandle>{2, 1}));
    const std::vector<std::pair<WindowHandle, QRect>> expected = {{2, {100, 20, 450, 700}},
                                                                  {1, {550, 20, 450, 700}}};
    EXPECT_EQ(desktop.placed, expected);
}

TEST_F(CompanionTest, WindowsComeAndGo) {
    execute({"ADD 1", "ADD -2", "REMOVE 1"});
    EXPECT_FALSE(windows.isEmpty());
    execute({"REMOVE 4294967294"});
    EXPECT_TRUE(windows.isEmpty());

    execute({"ADD 1", "ADD 2"});
    desktop.living = {2};
    execute({"TILE_VERTICAL"});
    EXPECT_EQ(desktop.asked, (std::vector<WindowHandle>{2}));
    desktop.living = {};
    windows.dropDead();
    EXPECT_TRUE(windows.isEmpty());
}

TEST_F(CompanionTest, IgnoresWhatItDoesNotKnow) {
    execute({"", "ADD", "ADD x", "ADD 1 2", "ADD 4294967297", "add 1", "ADD  1", "ADD 7", "QUIT",
             "TILE_VERTICAL"});
    EXPECT_TRUE(windows.isEmpty());
    EXPECT_TRUE(desktop.placed.empty());
}

} // namespace

} // namespace quillon::companion
