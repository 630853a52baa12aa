#pragma once

#include <QDBusMessage>
#include <QString>
#include <QVariant>
#include <random>
#include <utility>

namespace tilwin::contract {

/// Method calls as nobody means them: members that there are and that there are not, with arguments of any
/// type. The same seed makes the same calls.
class BusGarbage {
public:
  BusGarbage(QString service, unsigned seed) : service_(std::move(service)), random_(seed) {}

  [[nodiscard]] QDBusMessage call();

private:
  [[nodiscard]] int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
  [[nodiscard]] QString text();
  [[nodiscard]] QVariant value(int depth);

  QString service_;
  std::mt19937 random_;
};

}  // namespace tilwin::contract
