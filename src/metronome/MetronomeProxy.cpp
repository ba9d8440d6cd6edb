#include "metronome/MetronomeProxy.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "framework/Log.h"
#include "framework/Paths.h"
#include "metronome/PresetName.h"
#include "state/AtomicFile.h"
#include "state/PlistFile.h"
#include "state/PlistText.h"

namespace zt {

namespace {

// A temporary file this old cannot belong to a save still running.
constexpr auto kStaleTemporary = std::chrono::minutes(1);

bool hasVersion(const Value& root) {
    return root.isArray() && !root.array().empty() && root.array()[0].isString() &&
           root.array()[0].toString() == MetronomeProxy::kVersion;
}

// A preset has a name with something printable in it.
bool isPreset(const Value& element) {
    if (!element.isDictionary())
        return false;
    const Value& name = valueFor(element.dictionary(), "name");
    return name.isString() && !plist::sanitizeName(name.toString()).empty();
}

const Dictionary* asPreset(const Value& element) {
    return element.isDictionary() ? &element.dictionary() : nullptr;
}

}  // namespace

std::filesystem::path MetronomeProxy::presetsListPath() {
    return paths::dataDir() / "presetsList.plist";
}

void MetronomeProxy::createPresetsListFile() {
    const auto path = presetsListPath();
    if (file::ensureDirectory(path.parent_path()) &&
        plist::writeFile(path, Array{Value(kVersion)})) {
        log("presetList created");
    }
}

void MetronomeProxy::loadPresetsArray() {
    presetsArray_ = Array{Value(kVersion)};
    dirty_ = false;
    if (!paths::dataDir().empty())
        file::removeStaleTemporaries(presetsListPath(), kStaleTemporary);
    readFromDisk({});
}

void MetronomeProxy::readFromDisk(const Array& madeHere) {
    if (paths::dataDir().empty()) {
        blocked_ = true;
        blockedWhy_ = "there is no folder to keep them in";
        return;
    }
    const auto path = presetsListPath();
    auto opened = plist::openFile(path, plist::RootKind::Array);
    blocked_ = opened.state == plist::Opened::State::Blocked;
    blockedWhy_ = opened.why;
    if (opened.state == plist::Opened::State::Read && !hasVersion(opened.root)) {
        // A list, but not of presets: damaged like any other unusable file.
        if (const auto aside = file::keepAside(path, "corrupt")) {
            warn("warning: " + path.string() + " is damaged; kept as " + aside->string() +
                 " and replaced by an empty preset list");
            opened.state = plist::Opened::State::Missing;
        } else {
            blocked_ = true;
            blockedWhy_ = path.filename().string() + " is damaged and cannot be replaced";
        }
    }
    if (blocked_) {
        warn("presets are not available: " + blockedWhy_ +
             "; presets made now are kept until it can be read");
    }
    Array presets{Value(kVersion)};
    if (opened.state == plist::Opened::State::Read && !blocked_) {
        const Array& found = opened.root.array();
        for (std::size_t i = 1; i < found.size(); ++i) {
            if (isPreset(found[i]))
                presets.push_back(found[i]);
            else
                log("presets: element " + std::to_string(i) + " is not a preset; left out");
        }
    }
    for (std::size_t i = 1; i < madeHere.size(); ++i)
        presets.push_back(madeHere[i]);
    presetsArray_ = std::move(presets);
    if (opened.state == plist::Opened::State::Missing && madeHere.size() <= 1)
        createPresetsListFile();
    fileStamp_ = file::stampOf(path);
}

void MetronomeProxy::takeOutsideChanges() {
    if (blocked_ || file::stampOf(presetsListPath()) == fileStamp_)
        return;
    log("presetsList.plist was changed by another program; its presets are kept");
    const Array ours = presetsArray_;
    readFromDisk({});
    if (blocked_) {
        presetsArray_ = ours;
        return;
    }
    for (const Edit& edit : edits_) {
        const auto at = std::find(presetsArray_.begin() + 1, presetsArray_.end(),
                                  edit.kind == Edit::Kind::Replaced ? edit.previous : edit.preset);
        if (edit.kind == Edit::Kind::Added) {
            const std::size_t index =
                edit.index == 0 ? presetsArray_.size() : std::min(edit.index, presetsArray_.size());
            presetsArray_.insert(presetsArray_.begin() + static_cast<std::ptrdiff_t>(index),
                                 edit.preset);
        } else if (at == presetsArray_.end()) {
            // Gone from the file: a replacement is kept all the same.
            if (edit.kind == Edit::Kind::Replaced)
                presetsArray_.push_back(edit.preset);
        } else if (edit.kind == Edit::Kind::Removed) {
            presetsArray_.erase(at);
        } else {
            *at = edit.preset;
        }
    }
}

bool MetronomeProxy::flush() {
    if (!dirty_)
        return true;
    if (blocked_)
        readFromDisk(presetsArray_);
    const auto path = presetsListPath();
    takeOutsideChanges();
    file::Failure why = blockedWhy_;
    if (!blocked_ && file::ensureDirectory(path.parent_path(), &why) &&
        plist::writeFile(path, presetsArray_, &why)) {
        dirty_ = false;
        edits_.clear();
        fileStamp_ = file::stampOf(path);
        return true;
    }
    log("presets not saved to " + path.string() + ": " + why);
    notice_.report(*this, "Presets", why);
    return false;
}

void MetronomeProxy::changed() {
    dirty_ = true;
    flush();
}

void MetronomeProxy::saveCurrentState(const Dictionary& preset) {
    insertPresetAtIndex(static_cast<int>(presetsArray_.size()), preset);
}

void MetronomeProxy::insertPresetAtIndex(int index, const Dictionary& preset) {
    if (!isPreset(Value(preset))) {
        log("a preset needs a name; not added");
        return;
    }
    const std::size_t at = index >= 1 && static_cast<std::size_t>(index) <= presetsArray_.size()
                               ? static_cast<std::size_t>(index)
                               : presetsArray_.size();
    // An appended preset stays last should the file have grown meanwhile.
    const std::size_t where = at == presetsArray_.size() ? 0 : at;
    presetsArray_.emplace(presetsArray_.begin() + static_cast<std::ptrdiff_t>(at), preset);
    edits_.push_back({Edit::Kind::Added, presetsArray_[at], {}, where});
    changed();
}

bool MetronomeProxy::replacePresetAtIndex(int index, const Dictionary& preset) {
    if (!isPresetIndex(index) || !isPreset(Value(preset)))
        return false;
    Value& slot = presetsArray_[static_cast<std::size_t>(index)];
    edits_.push_back({Edit::Kind::Replaced, Value(preset), slot, 0});
    slot = Value(preset);
    changed();
    return true;
}

void MetronomeProxy::removePresetWithIndex(int index) {
    if (!isPresetIndex(index)) {
        log("no preset " + std::to_string(index) + " to remove");
        return;
    }
    edits_.push_back({Edit::Kind::Removed, presetsArray_[static_cast<std::size_t>(index)], {}, 0});
    presetsArray_.erase(presetsArray_.begin() + index);
    changed();
}

Dictionary MetronomeProxy::presetAtIndex(int index) const {
    if (!isPresetIndex(index))
        return {};
    const Dictionary* preset = asPreset(presetsArray_[static_cast<std::size_t>(index)]);
    return preset ? *preset : Dictionary{};
}

std::string MetronomeProxy::presetNameForIndex(int index) const {
    if (!isPresetIndex(index))
        return {};
    const Dictionary* preset = asPreset(presetsArray_[static_cast<std::size_t>(index)]);
    return preset ? valueFor(*preset, "name").toString() : std::string();
}

bool MetronomeProxy::containPresetWithName(const std::string& name) const {
    const std::u32string wanted = foldCase(name);
    for (std::size_t i = 1; i < presetsArray_.size(); ++i) {
        const Dictionary* preset = asPreset(presetsArray_[i]);
        if (!preset)
            continue;
        const Value& presetName = valueFor(*preset, "name");
        if (presetName.isString() && foldCase(presetName.toString()) == wanted)
            return true;
    }
    return false;
}

int MetronomeProxy::presetIndexForState(const std::string& state) const {
    for (std::size_t i = 1; i < presetsArray_.size(); ++i) {
        const Dictionary* preset = asPreset(presetsArray_[i]);
        if (preset && valueFor(*preset, "state") == Value(state))
            return static_cast<int>(i);
    }
    return 0;
}

bool MetronomeProxy::isPresetIndex(int index) const {
    return index >= 1 && static_cast<std::size_t>(index) < presetsArray_.size();
}

}  // namespace zt
