#include "bench/drag/VerdictTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>
#include <string_view>

#include "bench/drag/SimulatedUser.h"

namespace tilwin {
namespace {

// In pixels, from the top left.
constexpr int width = 1306;
constexpr int height = 480;
constexpr int plotTop = 112;
constexpr int plotHeight = 260;
constexpr int plotBottom = plotTop + plotHeight;
constexpr int firstPanel = 84;
constexpr int panelWidth = 262;
constexpr int panelStep = 306;
constexpr int barWidth = 40;
constexpr int barStep = 68;
constexpr int firstBar = 12;
constexpr int lineHeight = 13;

/// From the bottom of a bar to its top. The colours are Okabe and Ito's, which also differ to colour-blind
/// eyes, with greys for the verdicts that take no side.
struct Piece {
  std::size_t verdict;
  const char* fill;
  const char* ink;
};
constexpr std::array pieces{Piece{2, "#0072B2", "#FFFFFF"}, Piece{3, "#E69F00", "#1A1A1A"},
                            Piece{4, "#A8A8A8", "#1A1A1A"}, Piece{1, "#E2E2E2", "#1A1A1A"},
                            Piece{0, "#FFFFFF", "#1A1A1A"}};

class Drawing {
public:
  Drawing(const std::vector<VerdictRow>& rows, SnapsBy by) : rows_(rows), by_(by) {}

  std::string whole() {
    frame();
    std::size_t panel = 0;
    for (auto row = rows_.begin(); row != rows_.end(); ++panel) {
      const auto next =
          std::find_if(row, rows_.end(), [&](const auto& each) { return each.user != row->user; });
      drawPanel(firstPanel + panelStep * static_cast<int>(panel), {row, next});
      row = next;
    }
    legend();
    svg_ << "</svg>\n";
    return svg_.str();
  }

private:
  void text(double x, double y, const std::string& style, std::string_view words) {
    svg_ << "<text x='" << x << "' y='" << y << "' " << style << ">" << words << "</text>\n";
  }

  void box(double x, double y, double wide, double high, const char* fill) {
    svg_ << "<rect x='" << x << "' y='" << y << "' width='" << wide << "' height='" << high << "' fill='"
         << fill << "' stroke='#FFFFFF'/>\n";
  }

  void frame() {
    svg_ << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 " << width << " " << height
         << "' font-family='DejaVu Sans, Verdana, Helvetica, sans-serif' font-size='12' "
            "fill='#1A1A1A' role='img'>\n"
         << "<title>What the drag report tells simulated users</title>\n"
         << "<rect x='0.5' y='0.5' width='" << width - 1 << "' height='" << height - 1
         << "' rx='10' fill='#FFFFFF' stroke='#C8C8C8'/>\n";
    text(24, 36, "font-size='18' font-weight='bold'", "What the drag report tells simulated users");
    text(24, 58, "fill='#444444'",
         std::to_string(rows_.front().users) + " users of each kind; a window snaps by " +
             std::string(decisivePlace()) + "; numbers in bars are users");
    text(0, 0,
         "text-anchor='middle' transform='translate(34 " + std::to_string(plotTop + plotHeight / 2) +
             ") rotate(-90)'",
         "users told so");
  }

  void drawPanel(int left, const std::vector<VerdictRow>& rows) {
    text(left, plotTop - 16, "font-size='14' font-weight='bold'",
         "One " + std::string(SimulatedUser::all()[rows.front().user].name));
    for (int quarter = 0; quarter <= 4; ++quarter) {
      const int y = plotBottom - plotHeight * quarter / 4;
      svg_ << "<path d='M" << left << " " << y << ".5h" << panelWidth << "' stroke='#E4E4E4'/>\n";
      text(left - 6, y + 4, "text-anchor='end' font-size='11' fill='#444444'",
           std::to_string(rows.front().users * quarter / 4));
    }
    int x = left + firstBar;
    for (const VerdictRow& row : rows) {
      drawBar(x, row);
      text(x + barWidth / 2.0, plotBottom + 18, "text-anchor='middle'", grouped(row.drags));
      x += barStep;
    }
    text(left + panelWidth / 2.0, plotBottom + 38, "text-anchor='middle' fill='#444444'",
         "drags near an edge");
  }

  void drawBar(int x, const VerdictRow& row) {
    double y = plotBottom;
    double free = plotBottom + lineHeight;  // above this no label stands beside the bar yet
    for (const Piece& piece : pieces) {
      const int count = row.verdicts.at(piece.verdict);
      if (count == 0) continue;
      const double high = static_cast<double>(plotHeight) * count / row.users;
      y -= high;
      box(x, y, barWidth, high, piece.fill);
      const double middle = y + high / 2 + 4;
      if (high >= lineHeight + 2) {
        text(x + barWidth / 2.0, middle, std::string("text-anchor='middle' fill='") + piece.ink + "'",
             std::to_string(count));
      } else {
        free = std::min(middle, free - lineHeight);
        text(x + barWidth + 3, free, "font-size='11'", std::to_string(count));
      }
    }
  }

  void legend() {
    double x = firstPanel;
    for (const Piece& piece : pieces) {
      const bool seen = std::any_of(rows_.begin(), rows_.end(),
                                    [&](const auto& row) { return row.verdicts.at(piece.verdict) > 0; });
      if (!seen) continue;
      const std::string_view name = VerdictTable::names.at(piece.verdict);
      box(x, height - 38, 14, 14, piece.fill);
      text(x + 20, height - 26, "font-size='13'", name);
      x += 48 + 7.4 * static_cast<double>(name.size());
    }
  }

  [[nodiscard]] std::string_view decisivePlace() const {
    return by_ == SnapsBy::release ? "where it is let go" : "where it was last looked at";
  }

  static std::string grouped(std::size_t number) {
    std::string digits = std::to_string(number);
    if (digits.size() > 3) digits.insert(digits.size() - 3, ",");
    return digits;
  }

  const std::vector<VerdictRow>& rows_;
  SnapsBy by_;
  std::ostringstream svg_;
};

}  // namespace

std::string VerdictPlot::svg(const std::vector<VerdictRow>& rows, SnapsBy by) {
  return Drawing(rows, by).whole();
}

}  // namespace tilwin
