#include "tunings/ui/CommonSettings.h"

#include <QVariantMap>

#include "framework/Value.h"
#include "tunings/TuningCatalogue.h"
#include "tunings/TuningText.h"
#include "tunings/ui/CommonSettingsDelegate.h"

namespace zt {

CommonSettings::CommonSettings(QObject* parent) : Screen(parent) {
    setTuningList(tunings::TuningList());
    tuningArray_.clear();
    currentTuning_ = tuningNameArray_.value(0);
}

void CommonSettings::setTuningArray(const std::vector<std::string>& notesStand) {
    tuningArray_.clear();
    for (const auto& notes : notesStand) {
        tuningArray_.append(QString::fromStdString(tunings::compactLabel(notes)));
    }
    emit rowsChanged();
    emit reloaded();
}

void CommonSettings::setTuningList(const tunings::TuningList& list) {
    tuningNameArray_.clear();
    notes_.clear();
    storedNotes_.clear();
    flats_.clear();
    custom_.clear();
    for (const auto& entry : list.entries()) {
        tuningNameArray_.append(QString::fromStdString(entry.name));
        notes_.append(QString::fromStdString(tunings::spacedNotes(entry.notes, entry.flats)));
        storedNotes_.push_back(entry.notes);
        flats_.push_back(entry.flats);
        custom_.push_back(entry.custom);
    }
    setTuningArray(storedNotes_);
}

void CommonSettings::setTuningSetting(int index) {
    if (index == tuning_)
        return;
    tuning_ = index;
    emit tuningChanged();
}

QVariantList CommonSettings::rows() const {
    QVariantList out;
    const std::string query = filter_.toStdString();
    for (int i = 0; i < tuningNameArray_.size(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (!tunings::matchesFilter(query, tuningNameArray_[i].toStdString(), storedNotes_[at]))
            continue;
        out.append(QVariantMap{{QStringLiteral("name"), tuningNameArray_[i]},
                               {QStringLiteral("label"), tuningArray_.value(i)},
                               {QStringLiteral("notes"), notes_.value(i)},
                               {QStringLiteral("ticked"), isTicked(i + 1)},
                               {QStringLiteral("custom"), bool(custom_[at])},
                               {QStringLiteral("index"), i}});
    }
    return out;
}

void CommonSettings::setFilter(const QString& filter) {
    if (filter == filter_)
        return;
    filter_ = filter;
    emit rowsChanged();
    emit reloaded();
}

int CommonSettings::currentRow() const {
    const QVariantList shown = rows();
    for (int row = 0; row < shown.size(); ++row) {
        if (shown[row].toMap().value(QStringLiteral("ticked")).toBool())
            return row;
    }
    return -1;
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

QString CommonSettings::storeCustom(int index, const QString& name, const QString& notes) {
    if (!delegate_)
        return QStringLiteral("Tunings cannot be changed now.");
    const std::string wrong =
        delegate_->storeCustomTuning(index, name.toStdString(), notes.toStdString());
    if (wrong.empty())
        setCurrentTuning(tuning_);
    return QString::fromStdString(wrong);
}

bool CommonSettings::removeCustom(int index) {
    if (!delegate_ || !delegate_->removeCustomTuning(index))
        return false;
    setCurrentTuning(tuning_);
    return true;
}

QString CommonSettings::typedNotes(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= storedNotes_.size())
        return {};
    const auto at = static_cast<std::size_t>(index);
    return QString::fromStdString(tunings::typedForm(storedNotes_[at], flats_[at]));
}

bool CommonSettings::keyPressed(int key) {
    if (key != Qt::Key_Escape)
        return false;
    if (!filter_.isEmpty())
        setFilter(QString());
    else
        emit backRequested();
    return true;
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
