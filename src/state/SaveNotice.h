#pragma once
// Tells the user, once per run and file, that changes could not be saved.
// The changes stay in memory and the owner keeps trying at every save; the
// shell shows the message as a short banner and nothing waits for it.

#include <any>
#include <string>

#include "framework/Notifier.h"

namespace zt {

// Body: the message (std::string).
inline constexpr const char* kSaveFailed = "SaveFailed";
// Any other message for the user, shown the same way. Body: std::string.
inline constexpr const char* kShowNotice = "ShowNotice";

class SaveNotice {
public:
    // what: the kind of data ("Settings", "Presets"); why: from file::Failure.
    void report(Notifier& sender, const std::string& what, const std::string& why) {
        if (sent_)
            return;
        sent_ = true;
        // As std::any: a plain string would be taken for the type.
        sender.sendNotification(kSaveFailed, std::any(what + " could not be saved: " + why +
                                                      ". Changes are kept while the app runs "
                                                      "and saved as soon as possible."));
    }

private:
    bool sent_ = false;
};

}  // namespace zt
