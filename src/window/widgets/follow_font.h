#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace tessara {

// Runs what a widget measures by its font: now, and whenever the font or the style changes.
void FollowFont(QWidget* widget, std::function<void()> measure);

}  // namespace tessara
