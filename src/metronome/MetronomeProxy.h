#pragma once
// The metronome presets: named snapshots of every metronome setting, kept in
// "presetsList.plist" in the data folder. The file's root is an array whose
// element 0 is the format version "1.0"; elements 1 to n are the presets in
// the order they were made, each a dictionary of the metronome's current
// settings (with its "state" code) plus the "name" the user typed.
//
// Preset indices are array indices: the first preset is 1, and 0 means "no
// preset". The whole array stays in memory and is written back whole and
// atomically after every change. When someone else (another instance, an
// editor) changed the file since this run last read or wrote it, it is read
// again first and this run's additions and removals are made to it, entry by
// entry, so that neither side loses the other's presets.
//
// A file that is not such an array is kept aside as
// "presetsList.plist.corrupt" and replaced by an empty list. Elements that
// are not presets (not a dictionary, or no name with something printable in
// it) are left out. A file that exists but cannot be read is left alone:
// the list shows the presets made in this run, and once the file can be read
// again they are added to its presets and written.
//
// A change that cannot be written stays in memory and every later change,
// and flush(), tries again; the first failure of a run sends kSaveFailed.

#include <filesystem>
#include <string>
#include <vector>

#include "framework/Proxy.h"
#include "framework/Value.h"
#include "state/SaveNotice.h"

namespace zt {

class MetronomeProxy : public Proxy {
public:
    static constexpr const char* NAME = "MetronomeProxy";
    static constexpr const char* kVersion = "1.0";

    MetronomeProxy() : Proxy(NAME) {}

    // Reads the file into presetsArray, creating it first when missing.
    void loadPresetsArray();
    // Writes ["1.0"] (and logs "presetList created").
    void createPresetsListFile();
    // Data folder + "presetsList.plist".
    static std::filesystem::path presetsListPath();

    // The version element followed by the presets.
    const Array& presetsArray() const { return presetsArray_; }

    // Writes changes not yet on disk; true when none are left.
    bool flush();

    // Appends a preset and writes the file.
    void saveCurrentState(const Dictionary& preset);
    // Removes preset index (1 to n) and writes the file; other indices are
    // ignored.
    void removePresetWithIndex(int index);
    // Puts a preset back at index (1 to n + 1), as before its removal, and
    // writes the file. Any other index appends it.
    void insertPresetAtIndex(int index, const Dictionary& preset);
    // Replaces preset index (1 to n) with preset and writes the file; false
    // (and nothing changed) for another index or a preset without a name.
    bool replacePresetAtIndex(int index, const Dictionary& preset);

    // Preset index (1 to n); an empty dictionary for any other index.
    Dictionary presetAtIndex(int index) const;
    // Its "name"; "" for an index outside 1 to n.
    std::string presetNameForIndex(int index) const;
    // Whether a preset is named name, ignoring letter case.
    bool containPresetWithName(const std::string& name) const;
    // The first preset whose "state" is exactly state, else 0.
    int presetIndexForState(const std::string& state) const;

private:
    bool isPresetIndex(int index) const;
    // Takes the file's presets, followed by those of madeHere.
    void readFromDisk(const Array& madeHere);
    void changed();
    // Reads the file again when it is not the one last read or written,
    // and makes edits_ to it.
    void takeOutsideChanges();

    Array presetsArray_{Value(kVersion)};
    bool dirty_ = false;
    // The file is there but could not be read (or moved aside when damaged):
    // writing would destroy presets the user still has there.
    bool blocked_ = false;
    std::string blockedWhy_;
    SaveNotice notice_;
    // The changes made since the last write, to be made again to a file
    // someone else changed: a preset added (put back where it was when
    // found there), removed, or replaced by another.
    struct Edit {
        enum class Kind { Added, Removed, Replaced };
        Kind kind;
        Value preset;
        Value previous;         // Replaced: the preset it took the place of
        std::size_t index = 0;  // Added: where it was put back; 0 at the end
    };
    std::vector<Edit> edits_;
    std::string fileStamp_;  // see file::stampOf
};

}  // namespace zt
