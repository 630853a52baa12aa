#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>

/// The fields of any plain struct with their names, and the names of enumerators, so that tests can print
/// every value without a printer of its own. C++20 has no reflection: the names come out of the spelling that
/// GCC and clang give a template argument in `__PRETTY_FUNCTION__`.

#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wundefined-internal"  // both about `sample`
#pragma clang diagnostic ignored "-Wundefined-var-template"
#endif

namespace tilwin::printing {

/// Stands for a value of any type where the compiler only asks whether it would fit.
struct Anything {
  template <typename T>
  operator T() const;
};

/// How many fields the struct has: as many as its braces take.
template <typename Record, typename... Fields>
consteval std::size_t fieldCount() {
  if constexpr (requires { Record{Fields{}..., Anything{}}; }) {
    return fieldCount<Record, Fields..., Anything>();
  } else {
    return sizeof...(Fields);
  }
}

/// Structs with more fields have none that can be named; neither do those of the system, such as `FILE`.
constexpr std::size_t mostFields = 16;

template <std::size_t count>
using Count = std::integral_constant<std::size_t, count>;

/// Pointers to the fields, in their order.
template <typename Record>
constexpr auto fields(const Record&, Count<0>) {
  return std::tuple<>();
}

template <typename Record>
constexpr auto fields(const Record& record, Count<1>) {
  const auto& [a] = record;
  return std::make_tuple(&a);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<2>) {
  const auto& [a, b] = record;
  return std::make_tuple(&a, &b);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<3>) {
  const auto& [a, b, c] = record;
  return std::make_tuple(&a, &b, &c);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<4>) {
  const auto& [a, b, c, d] = record;
  return std::make_tuple(&a, &b, &c, &d);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<5>) {
  const auto& [a, b, c, d, e] = record;
  return std::make_tuple(&a, &b, &c, &d, &e);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<6>) {
  const auto& [a, b, c, d, e, f] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<7>) {
  const auto& [a, b, c, d, e, f, g] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<8>) {
  const auto& [a, b, c, d, e, f, g, h] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<9>) {
  const auto& [a, b, c, d, e, f, g, h, i] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<10>) {
  const auto& [a, b, c, d, e, f, g, h, i, j] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i, &j);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<11>) {
  const auto& [a, b, c, d, e, f, g, h, i, j, k] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i, &j, &k);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<12>) {
  const auto& [a, b, c, d, e, f, g, h, i, j, k, l] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i, &j, &k, &l);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<13>) {
  const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i, &j, &k, &l, &m);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<14>) {
  const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i, &j, &k, &l, &m, &n);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<15>) {
  const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i, &j, &k, &l, &m, &n, &o);
}

template <typename Record>
constexpr auto fields(const Record& record, Count<16>) {
  const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p] = record;
  return std::make_tuple(&a, &b, &c, &d, &e, &f, &g, &h, &i, &j, &k, &l, &m, &n, &o, &p);
}

/// Never defined: only the addresses of its fields are spelled.
template <typename Record>
struct Sample {
  const Record record;
};
template <typename Record>
extern const Sample<Record> sample;

/// Lets clang 14 take the address of a field as a template argument.
template <typename Pointer>
struct Address {
  Pointer field;
};
template <typename Pointer>
Address(Pointer) -> Address<Pointer>;

template <Address address>
consteval std::string_view spellingOfAddress() {
  return __PRETTY_FUNCTION__;
}

template <auto value>
consteval std::string_view spellingOfValue() {
  return __PRETTY_FUNCTION__;
}

constexpr bool isNameCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// The identifier that ends before `end`.
constexpr std::string_view nameBefore(std::string_view text, std::size_t end) {
  std::size_t start = end;
  while (start > 0 && isNameCharacter(text[start - 1])) --start;
  return text.substr(start, end - start);
}

/// GCC writes "{(& sample<R>.Sample<R>::record.R::name)}", clang "{&sample.record.name}]".
template <typename Record, std::size_t index>
consteval std::string_view fieldName() {
  constexpr auto pointers = fields(sample<Record>.record, Count<fieldCount<Record>()>{});
  constexpr std::string_view text = spellingOfAddress<Address{std::get<index>(pointers)}>();
  const std::size_t parenthesis = text.rfind(")}");
  return nameBefore(text, parenthesis == std::string_view::npos ? text.rfind("}]") : parenthesis);
}

/// The enumerator of this value; empty if there is none. GCC writes "value = E::name;", clang
/// "value = E::name]", and both a number for a value without an enumerator.
template <typename Enum, auto number>
consteval std::string_view enumeratorName() {
  constexpr std::string_view text = spellingOfValue<static_cast<Enum>(number)>();
  const std::size_t start = text.find("value = ");
  const std::string_view name = nameBefore(text, text.find_first_of(";]", start));
  return name.empty() || (name.front() >= '0' && name.front() <= '9') ? std::string_view() : name;
}

}  // namespace tilwin::printing

#ifdef __clang__
#pragma clang diagnostic pop
#endif
