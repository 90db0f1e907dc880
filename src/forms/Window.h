// A window as plain data: its caption, its place, and whether it shows.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "base/Font.h"
#include "controls/Control.h"

namespace brenwick {

enum class WindowState { Normal, Minimized };

class Window : public ControlList {
 public:
  virtual ~Window() = default;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  WindowState State() const { return state_; }
  // Minimizes the window or restores it to normal; Resize runs when the state changes. A minimized
  // window counts as visible, as its button in the task bar, until it is hidden; views look at
  // Visible() again when the state changes.
  void SetState(WindowState state);

  bool Visible() const { return visible_; }
  void Show() { SetVisible(true); }
  void Hide() { SetVisible(false); }
  // In front of the other programs' windows, with the keyboard.
  void BringToForeground() const { ForegroundWanted(); }

  // Place and size in twips, 15 to a pixel.
  int Left() const { return left_; }
  int Top() const { return top_; }
  void Move(int left, int top);
  int Width() const { return width_; }
  int Height() const { return height_; }
  void SetSize(int width, int height);

  // The font that a text's width is measured in.
  const Font& TextFont() const { return font_; }
  void SetTextFont(Font font) { font_ = std::move(font); }

  // Whether the program has a button in the task bar.
  bool InTaskbar() const { return in_taskbar_; }
  void SetInTaskbar(bool shown);

  // The user's door.
  void UserMinimizes() { SetState(WindowState::Minimized); }
  void UserRestores() { SetState(WindowState::Normal); }
  void UserMoves(int left, int top);
  void UserCloses() const;

  std::function<void()> Resize;
  std::function<void()> CloseWanted;

  Observers<> CaptionChanged;
  Observers<> StateChanged;  // minimized or restored
  Observers<> VisibilityChanged;
  Observers<> TaskbarChanged;
  Observers<> PlaceChanged;
  Observers<> ForegroundWanted;

 private:
  void SetVisible(bool visible);

  std::string caption_;
  Font font_;
  WindowState state_ = WindowState::Normal;
  bool visible_ = false;
  bool in_taskbar_ = true;
  int left_ = 0;
  int top_ = 0;
  int width_ = 0;
  int height_ = 0;
};

}  // namespace brenwick
