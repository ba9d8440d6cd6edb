#include "tunings/ui/ToolSettings.h"

#include <utility>

#include "tunings/ui/ToolSettingsDelegate.h"

namespace zt {

ToolSettings::ToolSettings(Switch toolSwitch, QObject* parent)
    : Screen(parent), switch_(std::move(toolSwitch)) {
    readValue();
}

void ToolSettings::readValue() {
    const bool value = switch_.read && switch_.read();
    if (value != isOn_) {
        isOn_ = value;
        emit isOnChanged();
    }
}

void ToolSettings::switcherAction() {
    isOn_ = !isOn_;
    emit isOnChanged();
    if (switch_.write)
        switch_.write(isOn_);
    if (switch_.saved == SaveMoment::Flipped)
        currentSave();
}

void ToolSettings::selectRow(int row) {
    if (row > 1 && delegate_)
        delegate_->chooseOptions(row);
}

void ToolSettings::flipLeftHanded() {
    showLeftHanded(!leftHanded_);
    if (delegate_)
        delegate_->setLeftHanded(leftHanded_);
}

void ToolSettings::showLeftHanded(bool on) {
    if (on == leftHanded_)
        return;
    leftHanded_ = on;
    emit leftHandedChanged();
}

void ToolSettings::viewWillAppear() {
    readValue();
    readCapo();
    if (delegate_)
        showLeftHanded(delegate_->isLeftHanded());
    const QString name = delegate_ ? QString::fromStdString(delegate_->getTuningName()) : QString();
    if (name != nameOfTuning_) {
        nameOfTuning_ = name;
        emit nameOfTuningChanged();
    }
}

void ToolSettings::viewWillDisappear() {
    if (switch_.saved == SaveMoment::Left)
        currentSave();
}

void ToolSettings::currentSave() {
    if (delegate_)
        delegate_->saveSettings({{switch_.key, isOn_}});
}

}  // namespace zt
