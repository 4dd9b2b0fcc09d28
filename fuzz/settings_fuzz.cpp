#include "fuzz/fuzz_support.h"
#include "settings/settings.h"

using namespace quillon;
using namespace quillon::fuzz;

/// A file of settings: it is read, written and read again, and the second time nothing is wrong
/// with it any more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const ScratchFile file;
    file.write(bytesOf(data, size));
    const system::SettingsStore store(file.path());
    settings::Placement placement;
    settings::Settings settings(store);
    settings.report = [](const QString &sentence) {
        require(!sentence.isEmpty(), "what is wrong is said");
    };
    settings.load(placement);
    require(settings.fontSize >= 1, "a font has a size");
    require(settings.editors.size() <= std::size_t(settings::EditorNames.most),
            "the editors have a bound");
    settings.save(placement, true);
    settings.saveEditors();

    settings::Placement placementAgain;
    settings::Settings again(store);
    again.report = [](const QString &) { require(false, "what was saved is not broken"); };
    again.load(placementAgain);
    require(again.fontSize == settings.fontSize && again.maximized == settings.maximized &&
                placementAgain.left == placement.left && placementAgain.height == placement.height,
            "what was saved is what is read");
    require(again.editors.size() == settings.editors.size(), "all editors are kept");
    return 0;
}
