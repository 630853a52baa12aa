#include "core/support/DecimalText.h"

#include <iomanip>
#include <locale>
#include <sstream>

namespace tilwin {

std::string decimalText(double number, int places) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::fixed << std::setprecision(places) << number;
  return text.str();
}

}  // namespace tilwin
