#include "tuners/FrequencyCommands.h"

#include <memory>
#include <string>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "tuners/FrequencyReaders.h"

namespace zt {

namespace {

constexpr const char* kMain = "MainFrequerncyProxy";
constexpr const char* kOrchestra = "OrchestraControlProxy";
constexpr const char* kMicrophone = "MicrophoneProxy";

// The name of the proxy kind the body asks for.
const char* askedKind(const Notification& notification) {
    const Proxy* proxy = nullptr;
    if (auto p = notification.bodyAs<Proxy*>())
        proxy = *p;
    else if (auto n = notification.bodyAs<Notifier*>())
        proxy = dynamic_cast<const Proxy*>(*n);
    if (proxy && proxy->proxyName() == kMain)
        return kMain;
    if (proxy && proxy->proxyName() == kOrchestra)
        return kOrchestra;
    return kMicrophone;
}

template <class Interface>
std::shared_ptr<Interface> registered(const Notifier& command, const char* name) {
    auto found = std::dynamic_pointer_cast<Interface>(command.facade().retrieveProxy(name));
    if (!found)
        log(std::string(name) + " is not registered; the tuner gets no reading");
    return found;
}

}  // namespace

void GetMainFrequerncyCommand::execute(const Notification& notification) {
    const char* kind = askedKind(notification);
    if (kind == kMicrophone) {
        if (auto reader = registered<VolumeReader>(*this, kMicrophone)) {
            const int level = reader->getMainVolume();
            if (level >= 0) {
                sendNotification("ShowMicrophoneIntensity", level);
            } else {
                sendNotification("ShowCalibratingError");
            }
        }
        return;
    }
    const bool main = kind == kMain;
    if (auto reader = registered<NoteReader>(*this, kind)) {
        const NoteDescription& description = reader->getNoteDesctiption();
        if (description.frequency == -2.0) {
            sendNotification(main ? "ShowMicrophoneError" : "ShowOrchestraError");
        } else {
            sendNotification(main ? "ShowNoteAndFrequernsy" : "ShowOrchestraFrequency",
                             description);
        }
    }
}

void StartAudioSessionCommand::execute(const Notification& notification) {
    if (auto owner = registered<AudioSessionOwner>(*this, askedKind(notification)))
        owner->startAudioSession();
}

void StopAudioSessionCommand::execute(const Notification& notification) {
    if (auto owner = registered<AudioSessionOwner>(*this, askedKind(notification)))
        owner->stopAudioSession();
}

}  // namespace zt
