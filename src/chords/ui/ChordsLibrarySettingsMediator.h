#pragma once
// The chords settings page, registered under its own name: the tunings list
// opens on the chords stack ("ShowChordsTuning") and the switch is saved
// with "SaveChordsLibraryState".

#include "tunings/ui/ToolSettingsMediator.h"

namespace zt {

class ChordsLibrarySettingsMediator : public ToolSettingsMediator {
public:
    static constexpr const char* NAME = "ChordsLibrarySettingsMediator";

    explicit ChordsLibrarySettingsMediator(ToolSettings* screen)
        : ToolSettingsMediator(NAME, screen, "SaveChordsLibraryState", "ShowChordsTuning") {}
};

}  // namespace zt
