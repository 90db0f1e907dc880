// The text of a settings file, any bytes: what was parsed is printed and parsed again alike.
#include <optional>

#include "base/Text.h"
#include "files/IniFormat.h"
#include "fuzz/Fuzz.h"

namespace brenwick {
namespace {

void CheckText(std::string_view bytes) {
  const std::optional<IniData> data = FromIni(bytes);
  if (!data) return;
  const std::string printed = ToIni(*data);
  Expect(IsValidUtf8(printed), "what is printed is valid UTF-8");
  Expect(FromIni(printed) == data, "what was printed is parsed again");
}

// The parts of the bytes as a key, a name and a value; its type is the first byte's number.
void CheckValue(std::string_view bytes) {
  std::vector<std::string_view> parts = Parts(bytes);
  parts.resize(3);
  const auto type = parts[2].empty() ? ValueKind::Text : static_cast<ValueKind>(parts[2].front());
  const auto number = static_cast<std::int32_t>(bytes.size() * 0x9E3779B1U);
  const bool text =
      type == ValueKind::Text || type == ValueKind::ExpandableText || type == ValueKind::TextList;
  const std::string content = text ? Repaired(parts[2]) : std::string(parts[2]);
  IniData data;
  if (!data.Write(Repaired(parts[0]), Repaired(parts[1]), {type, content, number})) return;
  data.Write("", Repaired(parts[0]), {type, content, number});
  Expect(FromIni(ToIni(data)) == data, "any value is parsed as it was printed");
}

const FuzzTarget kTarget("ini", [](std::string_view bytes) {
  CheckText(bytes);
  CheckValue(bytes);
});

}  // namespace
}  // namespace brenwick
