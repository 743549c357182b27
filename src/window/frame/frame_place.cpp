#include "window/frame/frame_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <string>

namespace tessara {
namespace {

int Pixels(int twips) { return twips / kTwipsPerPixel; }

QSize LeastSize() { return {Pixels(kMinFrameWidth), Pixels(kMinFrameHeight)}; }

// Whether enough of a window is in sight to take hold of it.
bool OnSomeScreen(const QRect& window) {
  constexpr int kHold = 48;
  const QRect hold(window.topLeft(), QSize(window.width(), kHold));
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect seen = screen->availableGeometry().intersected(hold);
    if (seen.width() >= kHold && seen.height() >= kHold / 2) return true;
  }
  return false;
}

// What fits the screen that the frame is on, or that of the place where it is to stand.
QSize Bounded(QSize size, const QScreen& screen) { return size.boundedTo(screen.availableSize()); }

const QScreen& ScreenAt(const QRect& window, const QWidget& frame) {
  const QScreen* screen = QGuiApplication::screenAt(window.topLeft());
  return screen ? *screen : *frame.screen();
}

}  // namespace

FramePlace::FramePlace(QMainWindow& frame, SettingsStore& store, Platform& platform, Settings& settings)
    : frame_(frame), store_(store), platform_(platform), settings_(settings) {}

void FramePlace::BoundLeastSize() { frame_.setMinimumSize(Bounded(LeastSize(), *frame_.screen())); }

void FramePlace::UseDefaultSize() {
  frame_.showNormal();
  frame_.resize(Bounded(LeastSize(), *frame_.screen()));
}

void FramePlace::ApplySize() {
  ReadFrameSize(settings_, store_);
  const FrameSize size = FrameSizeToApply(settings_);
  if (frame_.isMaximized() || frame_.isFullScreen()) return;
  frame_.resize(Bounded({Pixels(size.width), Pixels(size.height)}, *frame_.screen()));
}

void FramePlace::Restore() {
  const auto place = WindowPlaceOf(store_.Read(std::string(kWindowPlaceSetting)).value_or(""));
  if (!place) return;
  const QRect usual(place->x, place->y, place->width, place->height);
  const QScreen& screen = ScreenAt(usual, frame_);
  if (OnSomeScreen(usual)) frame_.move(usual.topLeft());
  if (!place->maximised) return frame_.resize(Bounded(frame_.size(), screen));
  frame_.resize(Bounded(usual.size().expandedTo(frame_.minimumSize()), screen));
  frame_.setWindowState(frame_.windowState() | Qt::WindowMaximized);
}

void FramePlace::Store() {
  settings_.Op7 = frame_.isMinimized() ? kMinimisedHeight : frame_.height() * kTwipsPerPixel;
  settings_.Op8 = frame_.width() * kTwipsPerPixel;
  WriteSetting(store_, platform_, "Op7", std::to_string(settings_.Op7));
  WriteSetting(store_, platform_, "Op8", std::to_string(settings_.Op8));
  const bool fills_screen = frame_.isMaximized() || frame_.isFullScreen();
  const QRect usual = fills_screen ? frame_.normalGeometry() : QRect(frame_.pos(), frame_.size());
  const WindowPlace place = {usual.x(), usual.y(), usual.width(), usual.height(), frame_.isMaximized()};
  WriteSetting(store_, platform_, std::string(kWindowPlaceSetting), WindowPlaceText(place));
}

}  // namespace tessara
