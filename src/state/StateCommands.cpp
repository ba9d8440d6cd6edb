#include "state/StateCommands.h"

#include <memory>
#include <string>
#include <vector>

#include "framework/Facade.h"
#include "framework/Log.h"
#include "state/SavedDataReceiver.h"
#include "state/StateProxy.h"

namespace zt {

namespace {

std::shared_ptr<StateProxy> stateProxy(const Notifier& command) {
    auto proxy = command.facade().retrieveProxyAs<StateProxy>(StateProxy::NAME);
    if (!proxy)
        log("StateProxy is not registered; saved state unavailable");
    return proxy;
}

template <void (StateProxy::*save)(const Dictionary&)>
void saveBody(const Notifier& command, const Notification& notification) {
    const Dictionary* changes = notification.bodyAs<Dictionary>();
    if (!changes) {
        log(notification.name() + ": the body is not a dictionary; nothing saved");
        return;
    }
    if (auto proxy = stateProxy(command))
        ((*proxy).*save)(*changes);
}

template <std::optional<Dictionary> (StateProxy::*get)()>
void answer(Notifier& command, const std::string& answerName) {
    if (auto proxy = stateProxy(command)) {
        command.sendNotification(answerName, ((*proxy).*get)().value_or(Dictionary{}));
    }
}

Notifier* askerOf(const Notification& notification) {
    if (auto p = notification.bodyAs<Notifier*>())
        return *p;
    if (auto p = notification.bodyAs<Mediator*>())
        return *p;
    if (auto p = notification.bodyAs<Proxy*>())
        return *p;
    return nullptr;
}

// The chromatic section's answer for a mediator asker: the notification and
// the keys it carries (all keys when empty).
struct ChromaticAnswer {
    const char* mediatorName;
    const char* notificationName;
    std::vector<const char*> keys;
};

const std::vector<ChromaticAnswer>& chromaticAnswers() {
    static const std::vector<ChromaticAnswer> answers = {
        {"TunerChromaticMediator", "StateChromaticTunerData", {}},
        {"MicrophoneMediator", "StateMicrophoneData", {"Taper", "Treshold"}},
        {"OrchestraMediator", "StateOrchestraControll", {}},
        {"TunerChromaticSettingsMediator",
         "StateChromaticSettingsData",
         {"LinearScale", "AllNotes"}},
    };
    return answers;
}

Dictionary pick(const Dictionary& section, const std::vector<const char*>& keys) {
    if (keys.empty())
        return section;
    Dictionary picked;
    for (const char* key : keys) {
        const Value& value = valueFor(section, key);
        if (value.isNull()) {
            log(std::string("ChromaticSettings has no \"") + key + "\"");
        } else {
            picked[key] = value;
        }
    }
    return picked;
}

}  // namespace

void SaveMetronomeStateCommand::execute(const Notification& n) {
    saveBody<&StateProxy::saveMetromoneState>(*this, n);
}
void SaveChromaticTunerStateCommand::execute(const Notification& n) {
    saveBody<&StateProxy::saveChromaticTunerState>(*this, n);
}
void SaveBrainTunerStateCommand::execute(const Notification& n) {
    saveBody<&StateProxy::saveBrainTunerState>(*this, n);
}
void SaveChordsLibraryStateCommand::execute(const Notification& n) {
    saveBody<&StateProxy::saveChordsLibraryState>(*this, n);
}
void SaveCommonStateCommand::execute(const Notification& n) {
    saveBody<&StateProxy::saveCommonState>(*this, n);
}

void GetMetronomeSaveDataCommand::execute(const Notification&) {
    answer<&StateProxy::getMetronomeData>(*this, "StateMetronomeData");
}
void GetBrainTunerSaveDataCommand::execute(const Notification&) {
    answer<&StateProxy::getBrainTunerData>(*this, "StateBrainTunerData");
}
void GetChordsLibraryStateCommand::execute(const Notification&) {
    answer<&StateProxy::getChordsLibraryData>(*this, "StateChordsData");
}

void GetCommonStateCommand::execute(const Notification&) {
    auto receiver =
        std::dynamic_pointer_cast<SavedDataReceiver>(facade().retrieveProxy("SettingsProxy"));
    if (!receiver) {
        log("GetCommonState: SettingsProxy is not registered");
        return;
    }
    if (auto proxy = stateProxy(*this))
        receiver->initVariables(proxy->getCommonData().value_or(Dictionary{}));
}

void GetChromTunerSaveDataCommand::execute(const Notification& notification) {
    Notifier* asker = askerOf(notification);
    if (auto* mediator = dynamic_cast<Mediator*>(asker)) {
        for (const auto& entry : chromaticAnswers()) {
            if (mediator->mediatorName() != entry.mediatorName)
                continue;
            if (auto proxy = stateProxy(*this)) {
                const auto section = proxy->getChromaticTunerData().value_or(Dictionary{});
                sendNotification(entry.notificationName, pick(section, entry.keys));
            }
            return;
        }
        return;
    }
    auto* proxy = dynamic_cast<Proxy*>(asker);
    auto* receiver = dynamic_cast<SavedDataReceiver*>(asker);
    if (proxy && receiver && proxy->proxyName() == "MainFrequerncyProxy") {
        if (auto state = stateProxy(*this)) {
            receiver->initVariables(state->getChromaticTunerData().value_or(Dictionary{}));
        }
    }
}

void registerStateCommands(Facade& facade) {
    facade.registerCommand("SaveMetronomeState", commandClass<SaveMetronomeStateCommand>());
    facade.registerCommand("SaveBrainTunerState", commandClass<SaveBrainTunerStateCommand>());
    facade.registerCommand("SaveChromaticTunerState",
                           commandClass<SaveChromaticTunerStateCommand>());
    facade.registerCommand("SaveChordsLibraryState", commandClass<SaveChordsLibraryStateCommand>());
    facade.registerCommand("SaveCommonState", commandClass<SaveCommonStateCommand>());
    facade.registerCommand("GetMetronomeSavedData", commandClass<GetMetronomeSaveDataCommand>());
    facade.registerCommand("GetBrainTunerSavedData", commandClass<GetBrainTunerSaveDataCommand>());
    facade.registerCommand("GetChromaticTunerSavedData",
                           commandClass<GetChromTunerSaveDataCommand>());
    facade.registerCommand("GetChordsLibrarySavedData",
                           commandClass<GetChordsLibraryStateCommand>());
    facade.registerCommand("GetCommonState", commandClass<GetCommonStateCommand>());
}

}  // namespace zt
