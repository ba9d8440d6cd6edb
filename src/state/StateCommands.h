#pragma once
// The ten commands between the tools and the saved state. Save commands take
// a Dictionary body of changed keys; get commands answer with the tool's
// state notification, whose body is the section as a Dictionary (empty when
// the file has no such section), before the request returns.

#include "framework/Command.h"

namespace zt {

class Facade;

class SaveMetronomeStateCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

class SaveChromaticTunerStateCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

class SaveBrainTunerStateCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

class SaveChordsLibraryStateCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

class SaveCommonStateCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

// "GetMetronomeSavedData" -> "StateMetronomeData".
class GetMetronomeSaveDataCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

// "GetBrainTunerSavedData" -> "StateBrainTunerData".
class GetBrainTunerSaveDataCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

// "GetChordsLibrarySavedData" -> "StateChordsData".
class GetChordsLibraryStateCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

// "GetCommonState": hands the common section to the "SettingsProxy"
// (a SavedDataReceiver); sends nothing.
class GetCommonStateCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

// "GetChromaticTunerSavedData": the body is the asker, a Notifier* (a
// Mediator* or Proxy* is taken as well). Only the asker gets an answer:
//   mediator "TunerChromaticMediator"         -> "StateChromaticTunerData", whole section
//   proxy "MainFrequerncyProxy"               -> its initVariables, whole section
//   mediator "MicrophoneMediator"             -> "StateMicrophoneData", "Taper" and "Treshold"
//   mediator "OrchestraMediator"              -> "StateOrchestraControll", whole section
//   mediator "TunerChromaticSettingsMediator" -> "StateChromaticSettingsData",
//                                                "LinearScale" and "AllNotes"
// Anyone else gets nothing.
class GetChromTunerSaveDataCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

// Registers the ten commands under their notification names, in the order of
// the application's command table. The application and the tests both
// register them through this one list.
void registerStateCommands(Facade& facade);

}  // namespace zt
