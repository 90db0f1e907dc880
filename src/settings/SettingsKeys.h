// The keys of the settings store.
#pragma once

namespace brenwick {

inline constexpr const char* kBrenwickKey = "Software\\Brenwick";
inline constexpr const char* kGeneralKey = "Software\\Brenwick\\General";
inline constexpr const char* kUserKey = "Software\\Brenwick\\User";
inline constexpr const char* kGridsKey = "Software\\Brenwick\\Grids";
inline constexpr const char* kVoicesKey = "Software\\Brenwick\\Voices";
inline constexpr const char* kTextKey = "Software\\Brenwick\\Text";
inline constexpr const char* kRunKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

}  // namespace brenwick
