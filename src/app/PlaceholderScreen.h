#pragma once
// A tool screen whose behaviour has not been built yet: it only carries the
// screen's title, which the shell shows on an otherwise empty page.

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

namespace zt {

class PlaceholderScreen : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Created by the shell")
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    explicit PlaceholderScreen(QString title, QObject* parent = nullptr)
        : QObject(parent), title_(std::move(title)) {}
    QString title() const { return title_; }

private:
    QString title_;
};

}  // namespace zt
