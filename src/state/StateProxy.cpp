#include "state/StateProxy.h"

#include <filesystem>
#include <system_error>

#include "framework/Log.h"
#include "framework/Paths.h"
#include "state/AtomicFile.h"
#include "state/PlistCodec.h"
#include "state/PlistFile.h"
#include "state/StateKeys.h"

namespace zt {

namespace fs = std::filesystem;

namespace {

// The default saved state as shipped among the resources. Should that copy be
// missing or damaged, the built-in defaults (the same values) stand in, so a
// broken installation still starts with a usable state.
std::string defaultStateXml() {
    const fs::path path = paths::resource(state::kStateFileName);
    auto read = file::readAll(path);
    if (read.status == file::ReadStatus::Ok) {
        auto parsed = plist::parse(read.bytes);
        if (parsed && parsed->isDictionary())
            return std::move(read.bytes);
    }
    log("default " + path.string() + " is missing or damaged; using the built-in defaults");
    return plist::toXml(Value(state::defaultSavedState()));
}

}  // namespace

std::string StateProxy::getStateFilePath() {
    const fs::path dir = paths::dataDir();
    const fs::path path = dir / state::kStateFileName;
    std::error_code ec;
    if (fs::exists(path, ec))
        return path.string();
    if (!file::ensureDirectory(dir) || !file::writeAtomically(path, defaultStateXml())) {
        log("Error saveState.plist");
        return {};
    }
    return path.string();
}

StateProxy::StateFile StateProxy::readState() {
    const std::string path = getStateFilePath();
    if (!path.empty()) {
        auto content = plist::readFile(path, plist::RootKind::Dictionary);
        if (content.status == plist::FileStatus::Ok)
            return {path, content.root.dictionary()};
        // Removed since the path was made, unreadable or damaged.
        auto loaded = plist::loadWithDefault(path, plist::RootKind::Dictionary, defaultStateXml());
        if (loaded.fromFile)
            return {path, loaded.root.dictionary()};
    }
    log("saveState.plist is not available; running on the default settings");
    auto defaults = plist::parse(defaultStateXml());
    return {{}, defaults ? defaults->dictionary() : state::defaultSavedState()};
}

void StateProxy::writeState(const StateFile& state) {
    if (state.path.empty()) {
        log("Error saveState.plist: settings not saved");
        return;
    }
    if (!plist::writeFile(state.path, Value(state.root))) {
        log("Error saveState.plist: settings not saved");
    }
}

std::optional<Dictionary> StateProxy::section(const std::string& name) {
    const StateFile state = readState();
    const Value& value = valueFor(state.root, name);
    if (value.isDictionary())
        return value.dictionary();
    if (!value.isNull())
        log("saveState.plist: \"" + name + "\" is not a dictionary");
    return std::nullopt;
}

std::optional<Dictionary> StateProxy::getMetronomeData() {
    return section(state::metronome::kSection);
}
std::optional<Dictionary> StateProxy::getChromaticTunerData() {
    return section(state::chromatic::kSection);
}
std::optional<Dictionary> StateProxy::getBrainTunerData() {
    return section(state::brain::kSection);
}
std::optional<Dictionary> StateProxy::getChordsLibraryData() {
    return section(state::chords::kSection);
}
std::optional<Dictionary> StateProxy::getCommonData() {
    auto common = section(state::common::kSection);
    log(common ? Value(*common).describe() : std::string("(null)"));
    return common;
}

void StateProxy::saveMetromoneState(const Dictionary& changes) {
    saveDictionaryToFile(changes, state::metronome::kSection);
}
void StateProxy::saveChromaticTunerState(const Dictionary& changes) {
    saveDictionaryToFile(changes, state::chromatic::kSection);
}
void StateProxy::saveBrainTunerState(const Dictionary& changes) {
    saveDictionaryToFile(changes, state::brain::kSection);
}
void StateProxy::saveChordsLibraryState(const Dictionary& changes) {
    saveDictionaryToFile(changes, state::chords::kSection);
}
void StateProxy::saveCommonState(const Dictionary& changes) {
    saveDictionaryToFile(changes, state::common::kSection);
}

void StateProxy::saveDictionaryToFile(const Dictionary& changes, const std::string& sectionName) {
    StateFile state = readState();
    auto it = state.root.find(sectionName);
    if (it == state.root.end() || !it->second.isDictionary()) {
        log("saveState.plist has no section \"" + sectionName + "\"; the change is not kept");
    } else {
        log(it->second.describe());
        Dictionary& target = it->second.dictionary();
        for (const auto& [key, value] : changes) {
            if (!value.isNull())
                target[key] = value;
        }
    }
    writeState(state);
}

int StateProxy::getSelectedViewController() {
    return state::read(readState().root, state::kSelectedViewController);
}

void StateProxy::saveSelectedViewController(int tabIndex) {
    StateFile state = readState();
    state.root[state::kSelectedViewController.name] = tabIndex;
    writeState(state);
}

}  // namespace zt
