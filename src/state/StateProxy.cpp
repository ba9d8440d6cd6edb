#include "state/StateProxy.h"

#include <chrono>
#include <filesystem>
#include <utility>

#include "framework/Log.h"
#include "framework/Paths.h"
#include "state/AtomicFile.h"
#include "state/PlistCodec.h"
#include "state/PlistFile.h"
#include "state/StateKeys.h"

namespace zt {

namespace fs = std::filesystem;

namespace {

// A temporary file this old cannot belong to a save still running.
constexpr auto kStaleTemporary = std::chrono::minutes(1);

// The default saved state as shipped among the resources, its bytes and its
// content. Should that copy be missing or damaged, the built-in defaults (the
// same values) stand in, so a broken installation still starts with a usable
// state.
std::pair<std::string, Dictionary> defaultState() {
    const fs::path path = paths::resource(state::kStateFileName);
    auto read = file::readAll(path);
    if (read.status == file::ReadStatus::Ok) {
        auto parsed = plist::parse(read.bytes);
        if (parsed && parsed->isDictionary())
            return {std::move(read.bytes), std::move(parsed->dictionary())};
    }
    log("default " + path.string() + " is missing or damaged; using the built-in defaults");
    Dictionary defaults = state::defaultSavedState();
    return {plist::toXml(Value(defaults)), defaults};
}

// Puts each key of changes into root; dictionaries are merged key by key.
void merge(Dictionary& root, const Dictionary& changes) {
    for (const auto& [key, value] : changes) {
        Value& target = root[key];
        if (value.isDictionary() && target.isDictionary()) {
            for (const auto& [inner, innerValue] : value.dictionary())
                target.dictionary()[inner] = innerValue;
        } else {
            target = value;
        }
    }
}

}  // namespace

std::string StateProxy::getStateFilePath() {
    load();
    std::error_code ec;
    if (path_.empty() || !fs::exists(path_, ec)) {
        log("Error saveState.plist");
        return {};
    }
    return path_;
}

void StateProxy::load() {
    if (loaded_)
        return;
    loaded_ = true;
    const fs::path dir = paths::dataDir();
    if (dir.empty()) {
        warn("warning: there is no folder for saveState.plist; settings are not saved");
        root_ = defaultState().second;
        state::repairSections(root_);
        return;
    }
    path_ = (dir / state::kStateFileName).string();
    file::removeStaleTemporaries(path_, kStaleTemporary);
    readFromDisk();
    write(false);
}

void StateProxy::readFromDisk() {
    auto opened = plist::openFile(path_, plist::RootKind::Dictionary);
    blocked_ = opened.state == plist::Opened::State::Blocked;
    blockedWhy_ = opened.why;
    if (opened.state == plist::Opened::State::Read) {
        root_ = std::move(opened.root.dictionary());
    } else {
        auto [bytes, defaults] = defaultState();
        root_ = std::move(defaults);
        // A missing file is created now, as a copy of the default one; a
        // blocked one is left alone.
        if (!blocked_) {
            copy_ = pending_.empty() ? std::move(bytes) : std::string();
            dirty_ = true;
        }
    }
    if (state::repairSections(root_) && !blocked_) {
        copy_.clear();
        dirty_ = true;
    }
    merge(root_, pending_);
    rememberFile();
}

void StateProxy::rememberFile() {
    fileStamp_ = file::stampOf(path_);
}

void StateProxy::takeOutsideChanges() {
    if (blocked_ || !copy_.empty() || file::stampOf(path_) == fileStamp_)
        return;
    log("saveState.plist was changed by another program; its changes are kept");
    auto opened = plist::openFile(path_, plist::RootKind::Dictionary);
    if (opened.state != plist::Opened::State::Read)
        return;  // gone or damaged (now kept aside): this run's state is written
    root_ = std::move(opened.root.dictionary());
    state::repairSections(root_);
    merge(root_, changed_);
}

bool StateProxy::flush() {
    load();
    return write(true);
}

bool StateProxy::write(bool tell) {
    if (!dirty_)
        return true;
    if (blocked_)
        readFromDisk();
    file::Failure why;
    if (path_.empty()) {
        why = "there is no folder to keep them in";
    } else if (blocked_) {
        why = blockedWhy_;
    } else {
        const fs::path dir = fs::path(path_).parent_path();
        takeOutsideChanges();
        const std::string bytes = copy_.empty() ? plist::toXml(Value(root_)) : copy_;
        if (file::ensureDirectory(dir, &why) && file::writeAtomically(path_, bytes, &why)) {
            copy_.clear();
            dirty_ = false;
            pending_.clear();
            rememberFile();
            return true;
        }
    }
    log("Error saveState.plist: settings not saved (" + why + ")");
    if (tell)
        notice_.report(*this, "Settings", why);
    return false;
}

void StateProxy::apply(const Dictionary& changes) {
    load();
    Dictionary before = root_;
    merge(root_, changes);
    if (root_ == before)
        return;
    merge(pending_, changes);
    merge(changed_, changes);
    copy_.clear();
    dirty_ = true;
    flush();
}

std::optional<Dictionary> StateProxy::section(const std::string& name) {
    load();
    const Value& value = valueFor(root_, name);
    if (value.isDictionary())
        return value.dictionary();
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
    Dictionary given;
    for (const auto& [key, value] : changes) {
        if (!value.isNull())
            given[key] = value;
    }
    log(valueFor(root_, sectionName).describe());
    apply({{sectionName, Value(std::move(given))}});
}

int StateProxy::getSelectedViewController() {
    load();
    return state::read(root_, state::kSelectedViewController);
}

void StateProxy::saveSelectedViewController(int tabIndex) {
    apply({{state::kSelectedViewController.name, tabIndex}});
    // The last save of a run: a last try for changes not written yet.
    flush();
}

}  // namespace zt
