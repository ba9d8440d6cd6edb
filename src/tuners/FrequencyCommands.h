#pragma once
// The commands of the tuners' readings. The body of each notification is the
// asking proxy (a Proxy* or Notifier*); the command serves the registered
// proxy of the same kind, tested in this order by name:
//   "MainFrequerncyProxy"   "GetMainFrequerncy" -> "ShowNoteAndFrequernsy" with a
//                           NoteDescription, or "ShowMicrophoneError" for -2
//   "OrchestraControlProxy" the same -> "ShowOrchestraFrequency" / "ShowOrchestraError"
//   anything else           the "MicrophoneProxy": its level -> "ShowMicrophoneIntensity"
//                           with the level (int) when 0 or more, else "ShowCalibratingError"
// "StartAudioSession" and "StopAudioSession" start and stop the chosen proxy's
// session.

#include "framework/Command.h"

namespace zt {

class Facade;

class GetMainFrequerncyCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

class StartAudioSessionCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

class StopAudioSessionCommand : public SimpleCommand {
public:
    void execute(const Notification& notification) override;
};

}  // namespace zt
