#include "app/ScreenProbe.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRectF>
#include <cstdio>

#include "app/Tools.h"

namespace zt {

namespace {

// The drawn values: an object of the view by its objectName, and the
// property read from it.
struct Drawn {
    const char* objectName;
    const char* property;
    const char* key;
};
constexpr Drawn kDrawn[] = {
    {"needle", "angle", "needle"},
    {"frequency", "text", "frequency"},
    {"microphoneAlert", "visible", "alert"},
};

// The object of the view named `name`: an item, or an object an item holds
// (a popup), searched through the visual tree.
const QObject* findDrawn(const QQuickItem* item, const QString& name) {
    if (item->objectName() == name)
        return item;
    if (const QObject* held = item->findChild<QObject*>(name, Qt::FindDirectChildrenOnly))
        return held;
    for (const QQuickItem* child : item->childItems()) {
        if (const QObject* found = findDrawn(child, name))
            return found;
    }
    return nullptr;
}

QJsonValue toJson(const QVariant& value) {
    if (value.typeId() == QMetaType::QRectF) {
        const QRectF r = value.toRectF();
        return QJsonArray{r.x(), r.y(), r.width(), r.height()};
    }
    return QJsonValue::fromVariant(value);
}

}  // namespace

ScreenProbe::ScreenProbe(QQuickWindow* window, Tools* tools, int intervalMs, QObject* parent)
    : QObject(parent), window_(window), tools_(tools) {
    timer_.setInterval(intervalMs);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &ScreenProbe::print);
}

void ScreenProbe::start() {
    clock_.start();
    timer_.start();
    print();
}

void ScreenProbe::print() {
    QJsonObject line;
    line["t"] = clock_.elapsed() / 1000.0;
    line["epochMs"] = QDateTime::currentMSecsSinceEpoch();
    const QString key = tools_->visibleScreen();
    line["screen"] = key;
    if (const Screen* screen = tools_->screen(key)) {
        QJsonObject properties;
        const QMetaObject* meta = screen->metaObject();
        for (int i = QObject::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
            const QMetaProperty property = meta->property(i);
            properties[property.name()] = toJson(property.read(screen));
        }
        line["properties"] = properties;
    }
    QJsonObject drawn;
    for (const Drawn& d : kDrawn) {
        const QObject* found = findDrawn(window_->contentItem(), QString::fromUtf8(d.objectName));
        if (found)
            drawn[d.key] = toJson(found->property(d.property));
    }
    line["drawn"] = drawn;
    std::printf("%s\n", QJsonDocument(line).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

}  // namespace zt
