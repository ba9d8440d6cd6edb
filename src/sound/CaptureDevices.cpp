#include "sound/CaptureDevices.h"

#include <AL/alc.h>

#include <algorithm>
#include <cstring>

#include "framework/Log.h"
#include "sound/OpenAlSettings.h"

namespace zt::capture {

std::vector<std::string> deviceNames() {
    std::vector<std::string> names;
    applyOpenAlSettings();
    // Without the enumeration extension the specifier names one device only,
    // not a list; ALC_ENUMERATE_ALL_EXT implies it.
    if (!alcIsExtensionPresent(nullptr, "ALC_ENUMERATION_EXT") &&
        !alcIsExtensionPresent(nullptr, "ALC_ENUMERATE_ALL_EXT"))
        return names;
    // Names each ended by a null, the whole list by a second null.
    const ALCchar* list = alcGetString(nullptr, ALC_CAPTURE_DEVICE_SPECIFIER);
    for (const ALCchar* name = list; name && *name; name += std::strlen(name) + 1)
        names.emplace_back(name);
    return names;
}

std::string chooseDevice(const std::string& saved, const std::vector<std::string>& available) {
    if (saved.empty())
        return {};
    if (std::find(available.begin(), available.end(), saved) != available.end())
        return saved;
    log("capture device \"" + saved + "\" is not there; using the system's default");
    return {};
}

}  // namespace zt::capture
