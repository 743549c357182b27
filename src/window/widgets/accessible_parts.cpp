#include "window/widgets/accessible_parts.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace tessara {
namespace {

// A chart is a picture of its own kind; without this it would be a mere frame.
QAccessibleInterface* FaceOf(const QString& class_name, QObject* object) {
  if (class_name != QLatin1String("tessara::ChartView") || !object || !object->isWidgetType()) return nullptr;
  return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Chart);
}

void NamePart(QWidget* part) {
  if (!part->accessibleName().isEmpty()) return;
  if (part->inherits("QTableCornerButton")) part->setAccessibleName(QObject::tr("Select all"));
  if (part->inherits("QLineEditIconButton")) part->setAccessibleName(QObject::tr("Clear"));
}

}  // namespace

AccessibleParts::AccessibleParts(QObject* parent) : QObject(parent) {
  QAccessible::installFactory(FaceOf);  // once more is the same as once
  qApp->installEventFilter(this);
}

bool AccessibleParts::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Polish && watched->isWidgetType()) NamePart(static_cast<QWidget*>(watched));
  return false;
}

}  // namespace tessara
