#pragma once

#include <QTemporaryDir>

namespace quillon::test {

/// Makes every run of a program the same, whoever starts it and where: without the display, the
/// desktop, the input method and the session bus of that user, on Qt's offscreen platform, and with
/// a home folder of its own, which goes when this goes. To be made ahead of the application object.
class OwnSurroundings {
public:
    /// Replaces the environment of this process.
    OwnSurroundings();

private:
    QTemporaryDir home_;
};

} // namespace quillon::test
