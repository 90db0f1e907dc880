#include "forms/Window.h"

namespace brenwick {

void Window::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  CaptionChanged();
}

void Window::SetState(WindowState state) {
  if (state == state_) return;
  state_ = state;
  if (state == WindowState::Minimized) visible_ = true;
  StateChanged();
  if (Resize) Resize();
}

void Window::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  VisibilityChanged();
}

void Window::Move(int left, int top) {
  if (left == left_ && top == top_) return;
  left_ = left;
  top_ = top;
  PlaceChanged();
}

void Window::SetSize(int width, int height) {
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  PlaceChanged();
}

void Window::SetInTaskbar(bool shown) {
  if (shown == in_taskbar_) return;
  in_taskbar_ = shown;
  TaskbarChanged();
}

void Window::UserMoves(int left, int top) { Move(left, top); }

void Window::UserCloses() const {
  if (CloseWanted) CloseWanted();
}

}  // namespace brenwick
