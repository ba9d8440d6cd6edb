#include "metronome/MetronomeProxy.h"

#include <algorithm>
#include <chrono>
#include <locale>
#include <string_view>

#include "framework/Log.h"
#include "framework/Paths.h"
#include "state/AtomicFile.h"
#include "state/PlistFile.h"
#include "state/PlistText.h"

namespace zt {

namespace {

// A temporary file this old cannot belong to a save still running.
constexpr auto kStaleTemporary = std::chrono::minutes(1);

// Lower-case mapping for the whole of Unicode where the C library has one
// ("Été" and "éTÉ" are the same title); plain ASCII otherwise.
const std::ctype<wchar_t>* unicodeCase() {
    static const std::ctype<wchar_t>* facet = []() -> const std::ctype<wchar_t>* {
        try {
            static const std::locale utf8("C.UTF-8");
            return &std::use_facet<std::ctype<wchar_t>>(utf8);
        } catch (const std::exception&) {
            return nullptr;
        }
    }();
    return facet;
}

// Bytes in the UTF-8 sequence that lead starts; 0 when lead cannot start one.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if ((lead >> 5) == 0x6)
        return 2;
    if ((lead >> 4) == 0xE)
        return 3;
    if ((lead >> 3) == 0x1E)
        return 4;
    return 0;
}

// Decodes UTF-8 and lowers each character. Bytes that are not UTF-8 stay
// distinct (mapped into the surrogate range, which no character uses).
std::u32string foldCase(std::string_view text) {
    std::u32string out;
    out.reserve(text.size());
    const auto* facet = unicodeCase();
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = sequenceLength(lead);
        // The lead byte's payload: the bits below its length marker.
        char32_t c = length <= 1 ? lead : lead & (0x7F >> length);
        bool valid = length > 0 && i + length <= text.size();
        for (std::size_t k = 1; valid && k < length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            valid = (next & 0xC0) == 0x80;
            c = (c << 6) | (next & 0x3F);
        }
        if (!valid) {
            out.push_back(0xDC00 + lead);
            ++i;
            continue;
        }
        if (facet && sizeof(wchar_t) == sizeof(char32_t))
            c = static_cast<char32_t>(facet->tolower(static_cast<wchar_t>(c)));
        else if (c >= 'A' && c <= 'Z')
            c += 'a' - 'A';
        out.push_back(c);
        i += length;
    }
    return out;
}

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
    for (const auto& [added, preset] : edits_) {
        const auto at = std::find(presetsArray_.begin() + 1, presetsArray_.end(), preset);
        if (added)
            presetsArray_.push_back(preset);
        else if (at != presetsArray_.end())
            presetsArray_.erase(at);
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
    if (!isPreset(Value(preset))) {
        log("a preset needs a name; not added");
        return;
    }
    presetsArray_.emplace_back(preset);
    edits_.emplace_back(true, presetsArray_.back());
    changed();
}

void MetronomeProxy::removePresetWithIndex(int index) {
    if (!isPresetIndex(index)) {
        log("no preset " + std::to_string(index) + " to remove");
        return;
    }
    edits_.emplace_back(false, presetsArray_[static_cast<std::size_t>(index)]);
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
