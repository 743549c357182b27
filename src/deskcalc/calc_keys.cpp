#include <algorithm>
#include <array>

#include "deskcalc/desk_calculator.h"

namespace tessara {
namespace {

constexpr std::array kKeys = {
    CalcKeyRow{CalcKey::k0, "0"},
    CalcKeyRow{CalcKey::k1, "1"},
    CalcKeyRow{CalcKey::k2, "2"},
    CalcKeyRow{CalcKey::k3, "3"},
    CalcKeyRow{CalcKey::k4, "4"},
    CalcKeyRow{CalcKey::k5, "5"},
    CalcKeyRow{CalcKey::k6, "6"},
    CalcKeyRow{CalcKey::k7, "7"},
    CalcKeyRow{CalcKey::k8, "8"},
    CalcKeyRow{CalcKey::k9, "9"},
    CalcKeyRow{CalcKey::kPoint, "."},
    CalcKeyRow{CalcKey::kBackspace, "back"},
    CalcKeyRow{CalcKey::kAdd, "+", "   +"},
    CalcKeyRow{CalcKey::kSubtract, "-", "   -"},
    CalcKeyRow{CalcKey::kMultiply, "*", "   *"},
    CalcKeyRow{CalcKey::kDivide, "/", "   /"},
    CalcKeyRow{CalcKey::kEqual, "=", "   ="},
    CalcKeyRow{CalcKey::kSquareRoot, "sqrt", "sqrt"},
    CalcKeyRow{CalcKey::kSquare, "sq", "  sq"},
    CalcKeyRow{CalcKey::kReciprocal, "1/x", "  1/x", "Reciprical of X"},
    CalcKeyRow{CalcKey::kFactorial, "n!", "   n!", "n factorial"},
    CalcKeyRow{CalcKey::kNaturalLog, "nl", "  nl", "Natural Log"},
    CalcKeyRow{CalcKey::kLog, "log", "  log", "Log to base 10"},
    CalcKeyRow{CalcKey::kAntilog, "Exp", "  Exp", "Antilog"},
    CalcKeyRow{CalcKey::kInteger, "Int", "  Int", "Display Integer"},
    CalcKeyRow{CalcKey::kClear, "clear"},
};
static_assert(kKeys.size() == static_cast<std::size_t>(CalcKey::kClear) + 1);

}  // namespace

std::span<const CalcKeyRow> CalcKeys() { return kKeys; }

const CalcKeyRow& RowOf(CalcKey key) { return kKeys[static_cast<std::size_t>(key)]; }

std::optional<CalcKey> KeyOfWord(std::string_view word) {
  const auto found = std::ranges::find(kKeys, word, &CalcKeyRow::word);
  return found == kKeys.end() ? std::nullopt : std::optional(found->key);
}

}  // namespace tessara
