#include "tunings/TuningList.h"

#include <algorithm>
#include <cctype>

#include "framework/Paths.h"
#include "framework/Value.h"
#include "state/PlistFile.h"
#include "tunings/TuningCatalogue.h"
#include "tunings/TuningText.h"

namespace zt::tunings {

namespace {

constexpr const char* kVersion = "1.0";
constexpr std::size_t kLongestName = 40;

std::string lower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1));
}

// A stored tuning is usable when its notes read back as typed notes would.
bool usable(const CustomTuning& tuning) {
    return !trimmed(tuning.name).empty() && parseTyped(tuning.notes).notes == tuning.notes;
}

}  // namespace

TuningList::TuningList() {
    for (const auto& tuning : catalogue())
        entries_.push_back({std::string(tuning.name), std::string(tuning.notes),
                            spellsWithFlats(tuning.name), false});
}

const Entry& TuningList::at(int index) const {
    return entries_[contains(index) ? static_cast<std::size_t>(index) : 0];
}

int TuningList::find(std::string_view numberOrName) const {
    const std::string wanted = lower(trimmed(numberOrName));
    for (int i = 0; i < size(); ++i) {
        if (wanted == std::to_string(i) ||
            wanted == lower(entries_[static_cast<std::size_t>(i)].name))
            return i;
    }
    return -1;
}

void TuningList::setCustom(const std::vector<CustomTuning>& custom) {
    entries_.resize(kCount);
    custom_.clear();
    for (const auto& tuning : custom) {
        if (!usable(tuning) || !checkName(tuning.name).empty())
            continue;
        custom_.push_back({trimmed(tuning.name), tuning.notes, tuning.flats});
        entries_.push_back({custom_.back().name, tuning.notes,
                            tuning.flats || spellsWithFlats(tuning.name), true});
    }
}

std::string TuningList::checkName(std::string_view name, int except) const {
    const std::string clean = trimmed(name);
    if (clean.empty())
        return "Give the tuning a name.";
    if (clean.size() > kLongestName)
        return "The name is too long: keep it to " + std::to_string(kLongestName) + " characters.";
    const int taken = find(clean);
    if (taken >= 0 && taken != except && lower(at(taken).name) == lower(clean))
        return "There is a tuning called \"" + at(taken).name + "\" already.";
    return {};
}

std::filesystem::path customTuningsPath() {
    const auto dir = paths::dataDir();
    return dir.empty() ? dir : dir / "customTunings.plist";
}

LoadedCustom loadCustomTunings(const std::filesystem::path& path) {
    LoadedCustom loaded;
    if (path.empty())
        return loaded;
    const auto opened = plist::openFile(path, plist::RootKind::Dictionary);
    loaded.blocked = opened.state == plist::Opened::State::Blocked;
    if (opened.state != plist::Opened::State::Read)
        return loaded;
    const Value& list = valueFor(opened.root.dictionary(), "tunings");
    if (!list.isArray())
        return loaded;
    for (const Value& item : list.array()) {
        if (!item.isDictionary())
            continue;
        const Dictionary& d = item.dictionary();
        loaded.tunings.push_back({valueFor(d, "name").toString(), valueFor(d, "notes").toString(),
                                  valueFor(d, "flats").toBool(false)});
    }
    return loaded;
}

bool saveCustomTunings(const std::filesystem::path& path, const std::vector<CustomTuning>& custom,
                       file::Failure* why) {
    if (path.empty()) {
        if (why)
            *why = "there is no folder for the user's files";
        return false;
    }
    Array list;
    for (const auto& tuning : custom)
        list.emplace_back(
            Dictionary{{"name", tuning.name}, {"notes", tuning.notes}, {"flats", tuning.flats}});
    file::ensureDirectory(path.parent_path(), why);
    return plist::writeFile(path, Dictionary{{"version", kVersion}, {"tunings", std::move(list)}},
                            why);
}

TuningList userTunings() {
    TuningList list;
    list.setCustom(loadCustomTunings(customTuningsPath()).tunings);
    return list;
}

}  // namespace zt::tunings
