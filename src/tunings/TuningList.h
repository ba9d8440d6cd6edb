#pragma once
// Every tuning the user can choose: the 53 of the catalogue, whose order and
// indices never change, followed by the user's own in the order they were
// made. Everything that turns a tuning index or name into strings goes
// through this list, so that the user's tunings work wherever the
// catalogue's do.
//
// The user's tunings are kept in "customTunings.plist" in the data folder:
// a dictionary with "version" "1.0" and "tunings", an array of dictionaries
// with "name", "notes" (the stored form, "D2&A2&D3&G3&A3&D4") and "flats"
// (typed with flats). Entries that are not such tunings are left out.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "state/AtomicFile.h"

namespace zt::tunings {

struct Entry {
    std::string name;
    std::string notes;
    bool flats = false;  // spelled with flats on screen
    bool custom = false;
};

struct CustomTuning {
    std::string name;
    std::string notes;
    bool flats = false;
};

class TuningList {
public:
    TuningList();

    int size() const { return static_cast<int>(entries_.size()); }
    bool contains(int index) const { return index >= 0 && index < size(); }
    // The tuning at index; Standard for an index outside the list.
    const Entry& at(int index) const;
    const std::vector<Entry>& entries() const { return entries_; }

    // The index of a tuning by its number or its name (any letter case); -1.
    int find(std::string_view numberOrName) const;

    // Replaces the user's tunings (those that are not usable are dropped).
    void setCustom(const std::vector<CustomTuning>& custom);
    const std::vector<CustomTuning>& custom() const { return custom_; }

    // What is wrong with name for a user's tuning, "" when nothing: it must
    // have something printable, at most 40 characters, and no other tuning
    // may have it (letter case aside), except the one at index `except`.
    std::string checkName(std::string_view name, int except = -1) const;

private:
    std::vector<Entry> entries_;
    std::vector<CustomTuning> custom_;
};

// "customTunings.plist" in the data folder; empty when there is none.
std::filesystem::path customTuningsPath();

struct LoadedCustom {
    std::vector<CustomTuning> tunings;
    // The file is there but cannot be used; it must not be written over.
    bool blocked = false;
};
// A damaged file is kept aside (".corrupt") and gives no tunings.
LoadedCustom loadCustomTunings(const std::filesystem::path& path);
// Writes the file whole and atomically.
bool saveCustomTunings(const std::filesystem::path& path, const std::vector<CustomTuning>& custom,
                       file::Failure* why = nullptr);

// The catalogue with the user's tunings from their file.
TuningList userTunings();

}  // namespace zt::tunings
