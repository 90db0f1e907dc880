#include "language/TextTable.h"

#include "language/GetText.h"

namespace brenwick {

std::string TextTable::LoadText(std::int16_t id) const {
  return log_.Trap("modFunctions", "LoadText", [&] {
    if (id < 0 || entries_.empty()) throw Failure(kSubscript);
    const auto place = static_cast<std::size_t>(id);
    if (place >= entries_.size()) {
      throw Failure(65535, "Language string " + std::to_string(id) + " is not found...",
                    "LoadText");
    }
    return entries_[place];
  });
}

bool TextTable::Has(std::int16_t id) const {
  const auto place = static_cast<std::size_t>(id);
  return id >= 0 && place < entries_.size() && !entries_[place].empty();
}

std::string TextTable::GetText(const std::string& text, const std::string& argument) const {
  return log_.Trap("modFunctions", "GetText", [&] { return brenwick::GetText(text, argument); });
}

}  // namespace brenwick
