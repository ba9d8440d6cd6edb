#include "metronome/ui/PresetListModel.h"

#include "metronome/PresetName.h"
#include "metronome/ui/MetronomeSettingsDelegate.h"

namespace zt {

namespace {

// A name as a row shows it: without the bidirectional controls, which would
// turn the rest of the row around (U+202E shows "abc" as "cba"). Names typed
// here never hold them; a file written elsewhere may, and keeps them.
QString shownName(QString name) {
    name.removeIf([](QChar c) {
        const char16_t u = c.unicode();
        return u == 0x061C || u == 0x200E || u == 0x200F || (u >= 0x202A && u <= 0x202E) ||
               (u >= 0x2066 && u <= 0x2069);
    });
    return name;
}

}  // namespace

void PresetListModel::setDelegate(const MetronomeSettingsDelegate* delegate) {
    delegate_ = delegate;
    reload();
}

void PresetListModel::reload() {
    beginResetModel();
    rows_ = presetsCount();
    endResetModel();
    emit countChanged();
}

void PresetListModel::beginAppend() {
    beginInsert(rows_ + 1);
}

void PresetListModel::endAppend() {
    endInsert();
}

void PresetListModel::beginInsert(int index) {
    beginInsertRows({}, index - 1, index - 1);
}

void PresetListModel::endInsert() {
    ++rows_;
    endInsertRows();
    emit countChanged();
    // The delegate refused the preset: the views take the list anew.
    if (rows_ != presetsCount())
        reload();
}

void PresetListModel::beginRemove(int index) {
    beginRemoveRows({}, index - 1, index - 1);
}

void PresetListModel::endRemove() {
    --rows_;
    endRemoveRows();
    emit countChanged();
    if (rows_ != presetsCount())
        reload();
}

void PresetListModel::presetChanged(int index) {
    const QModelIndex changed = this->index(index - 1);
    if (changed.isValid())
        emit dataChanged(changed, changed);
}

int PresetListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant PresetListModel::data(const QModelIndex& index, int role) const {
    if (!delegate_ || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == NameRole)
        return shownName(QString::fromStdString(delegate_->presetNameForIndex(index.row() + 1)));
    if (role == SummaryRole)
        return QString::fromStdString(presetSummary(delegate_->presetAtIndex(index.row() + 1)));
    return {};
}

QHash<int, QByteArray> PresetListModel::roleNames() const {
    return {{NameRole, "name"}, {SummaryRole, "summary"}};
}

int PresetListModel::presetsCount() const {
    return delegate_ ? delegate_->presetsCount() : 0;
}

}  // namespace zt
