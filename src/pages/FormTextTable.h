// Which text each control of the main window shows.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "forms/frmMain.h"

namespace brenwick {

struct FormText {
  std::int16_t id;
  void (*set)(frmMain& form, const std::string& text);
};

std::span<const FormText> FormTextTable();

}  // namespace brenwick
