#pragma once
// The custom presets of the metronome settings as a list model: row r is
// preset r + 1, its role "name" the preset's name and "summary" its tempo
// and time signature. A view asks for the rows
// it shows, so a list of thousands costs what fits on the screen; adding or
// removing a preset inserts or removes one row instead of rebuilding the
// list. The presets themselves stay with the delegate (the mediator).

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>

namespace zt {

class MetronomeSettingsDelegate;

class PresetListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Owned by the metronome settings screen")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { NameRole = Qt::UserRole + 1, SummaryRole };

    explicit PresetListModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

    // Takes the presets of delegate (none for nullptr), as a reset.
    void setDelegate(const MetronomeSettingsDelegate* delegate);
    // Takes the delegate's presets anew (a reset), when they may have
    // changed behind the model's back.
    void reload();

    // Around the delegate's appending of one preset.
    void beginAppend();
    void endAppend();
    // Around the delegate's removal of preset index (1 to n).
    void beginRemove(int index);
    void endRemove();
    // Around the delegate's putting back of a preset at index (1 to n + 1).
    void beginInsert(int index);
    void endInsert();
    // Preset index (1 to n) was changed in place.
    void presetChanged(int index);

    int count() const { return rows_; }
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    int presetsCount() const;

    const MetronomeSettingsDelegate* delegate_ = nullptr;
    // The rows as last announced to the views.
    int rows_ = 0;
};

}  // namespace zt
