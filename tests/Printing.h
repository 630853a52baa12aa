#pragma once

#include <gtest/gtest-printers.h>
#include <rapidcheck/Show.h>

#include <array>
#include <chrono>
#include <concepts>
#include <ctime>
#include <exception>
#include <iomanip>
#include <iterator>
#include <ostream>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include "core/geometry/NormalizedRect.h"
#include "core/geometry/Rect.h"
#include "core/layouts/DisplaySignature.h"
#include "core/settings/HotKeySpec.h"
#include "core/settings/KeyNames.h"
#include "core/snap/actions/GridRegion.h"
#include "core/snap/actions/SnapAction.h"
#include "core/support/Uuid.h"
#include "tests/printing/Reflection.h"

/// How a failed expectation or property shows values. `tilwin_test_program` includes this before the first
/// line of every source, as all sources of a program must print a type alike. A struct prints its fields by
/// name and an enumeration the name of its case without more ado; a type that should read differently gets an
/// `operator<<`: here, or beside it if it belongs to one test.

namespace tilwin {

inline std::ostream& operator<<(std::ostream& out, const Rect& rect) {
  return out << rect.width << "x" << rect.height << " at " << rect.x << "," << rect.y;
}

inline std::ostream& operator<<(std::ostream& out, const NormalizedRect& rect) {
  return out << rect.width << "x" << rect.height << " at " << rect.x << "," << rect.y;
}

inline std::ostream& operator<<(std::ostream& out, const GridRegion& region) {
  return out << region.colSpan << "x" << region.rowSpan << " cells at " << region.col << "," << region.row
             << " of " << region.columns << "x" << region.rows;
}

inline std::ostream& operator<<(std::ostream& out, const SnapAction& action) {
  return out << SnapActions::rawValue(action);
}

inline std::ostream& operator<<(std::ostream& out, const HotKeySpec& spec) {
  return out << KeyNames::describe(spec) << " (key " << spec.keyCode << ", modifiers " << spec.modifiers
             << ")";
}

inline std::ostream& operator<<(std::ostream& out, const Uuid& uuid) { return out << uuid.text(); }

inline std::ostream& operator<<(std::ostream& out, const DisplaySignature& signature) {
  return out << '"' << signature.key << '"';
}

namespace printing {

template <typename Enum>
void printEnumerator(Enum value, std::ostream& out) {
  using Number = std::underlying_type_t<Enum>;
  constexpr auto names = []<int... number>(std::integer_sequence<int, number...>) {
    return std::array{enumeratorName<Enum, number>()...};
  }
  (std::make_integer_sequence<int, 100>());
  const auto number = static_cast<long long>(static_cast<Number>(value));
  const bool isNamed = number >= 0 && number < std::ssize(names);
  const std::string_view name = isNamed ? names[static_cast<std::size_t>(number)] : std::string_view();
  name.empty() ? out << number : out << name;
}

template <typename Record>
void printFields(const Record& record, std::ostream& out) {
  constexpr std::size_t count = fieldCount<Record>();
  const auto pointers = fields(record, Count<count>{});
  out << '{';
  [&]<std::size_t... index>(std::index_sequence<index...>) {
    ((out << (index == 0 ? "" : ", ") << fieldName<Record, index>() << ": "
          << testing::PrintToString(*std::get<index>(pointers))),
     ...);
  }
  (std::make_index_sequence<count>());
  out << '}';
}

/// Wall-clock times as text in UTC, others as the time since their clock's epoch.
template <typename Clock, typename Duration>
void printMoment(std::chrono::time_point<Clock, Duration> moment, std::ostream& out) {
  if constexpr (std::is_same_v<Clock, std::chrono::system_clock>) {
    const auto second = std::chrono::floor<std::chrono::seconds>(moment);
    const std::time_t time = second.time_since_epoch().count();
    std::tm parts{};
    out << std::put_time(::gmtime_r(&time, &parts), "%Y-%m-%dT%H:%M:%SZ");
    if (moment != second) out << " and " << std::chrono::duration<double>(moment - second).count() << " s";
  } else {
    out << moment.time_since_epoch();
  }
}

template <typename T>
inline constexpr bool isMoment = false;
template <typename Clock, typename Duration>
inline constexpr bool isMoment<std::chrono::time_point<Clock, Duration>> = true;

template <typename T>
consteval bool isPrintedByField() {
  if constexpr (std::is_aggregate_v<T> && std::is_class_v<T>) return fieldCount<T>() <= mostFields;
  return false;
}

/// Types that are only declared have no value to look at.
template <typename T>
concept Complete = requires {
  sizeof(T);
};

/// Prints what neither has an `operator<<` nor is a container.
struct PlainPrinter {
  template <typename T>
  static void PrintValue(const T& value, std::ostream* out) {  // NOLINT(readability-identifier-naming)
    if constexpr (std::is_enum_v<T>) {
      printEnumerator(value, *out);
    } else if constexpr (isMoment<T>) {
      printMoment(value, *out);
    } else if constexpr (std::is_base_of_v<std::exception, T>) {
      *out << value.what();
    } else if constexpr (isPrintedByField<T>()) {
      printFields(value, *out);
    } else {
      static_assert(!std::equality_comparable<T> || std::input_or_output_iterator<T>,
                    "a value that can be compared needs an operator<< to print");
      // An iterator, or an object without a value, such as the one behind a smart pointer.
      *out << "a " << testing::internal::GetTypeName<T>();
    }
  }
};

}  // namespace printing
}  // namespace tilwin

/// Comes before the last resort of GoogleTest, which is to print the bytes of the value in hex.
template <typename T>
requires(!std::is_convertible_v<const T&, std::string_view>) struct testing::internal::FindFirstPrinter<
    T, void, testing::internal::ConvertibleToStringViewPrinter, testing::internal::RawBytesPrinter,
    testing::internal::FallbackPrinter> {
  // NOLINTNEXTLINE(readability-identifier-naming): GoogleTest's name
  using type =
      std::conditional_t<tilwin::printing::Complete<T>, tilwin::printing::PlainPrinter, FallbackPrinter>;
};

/// RapidCheck would print "<\?\?\?>".
template <typename T>
struct rc::detail::ShowDefault<T, false, false> {
  static void show(const T& value, std::ostream& out) { out << testing::PrintToString(value); }
};
