#include "tunings/ui/CommonSettings.h"

#include <QVariantMap>

#include "framework/Value.h"
#include "tunings/TuningCatalogue.h"
#include "tunings/ui/CommonSettingsDelegate.h"

namespace zt {

CommonSettings::CommonSettings(QObject* parent) : Screen(parent) {
    for (const auto& tuning : tunings::catalogue()) {
        tuningNameArray_.append(
            QString::fromUtf8(tuning.name.data(), static_cast<qsizetype>(tuning.name.size())));
    }
    currentTuning_ = tuningNameArray_.value(0);
}

void CommonSettings::setTuningArray(const std::vector<std::string>& notesStand) {
    tuningArray_.clear();
    for (const auto& notes : notesStand) {
        tuningArray_.append(QString::fromStdString(tunings::compactLabel(notes)));
    }
    emit reloaded();
}

void CommonSettings::setTuningSetting(int index) {
    if (index == tuning_)
        return;
    tuning_ = index;
    emit tuningChanged();
}

QVariantList CommonSettings::rows() const {
    QVariantList out;
    for (int i = 0; i < tuningNameArray_.size(); ++i) {
        out.append(QVariantMap{{QStringLiteral("name"), tuningNameArray_[i]},
                               {QStringLiteral("label"), tuningArray_.value(i)},
                               {QStringLiteral("ticked"), isTicked(i + 1)}});
    }
    return out;
}

bool CommonSettings::isTicked(int row) const {
    return row >= 1 && row < rowCount() && tuningNameArray_[row - 1] == currentTuning_;
}

void CommonSettings::selectRow(int row) {
    if (row < 1 || row >= rowCount())
        return;
    if (delegate_)
        delegate_->setTuning(row - 1);
    setCurrentTuning(row - 1);
}

void CommonSettings::viewWillAppear() {
    if (delegate_)
        delegate_->getTuning();
    setCurrentTuning(tuning_);
}

void CommonSettings::viewDidDisappear() {
    saveCurrentState();
}

void CommonSettings::saveCurrentState() {
    if (!delegate_)
        return;
    delegate_->getTuning();
    delegate_->saveCommonSettings(Dictionary{{"Tuning", tuning_}});
}

void CommonSettings::setCurrentTuning(int index) {
    // A bad index from outside shows the default tuning rather than nothing.
    currentTuning_ = tuningNameArray_.value(index, tuningNameArray_.value(0));
    emit reloaded();
}

}  // namespace zt
