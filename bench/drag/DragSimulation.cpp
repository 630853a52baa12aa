#include "bench/drag/DragSimulation.h"

#include <chrono>
#include <memory>
#include <optional>

#include "core/drag/DragFeatures.h"
#include "core/drag/DragIntentModel.h"
#include "core/drag/ShadowRecorder.h"

namespace tilwin {
namespace {

constexpr std::int64_t window = 1;
constexpr double followUpSeconds = 4;  ///< after which whatever the user does comes too late for the record

class Memory final : public ShadowSink {
public:
  void append(const ShadowRecord& record) override { records.push_back(record); }

  std::vector<ShadowRecord> records;
};

/// One user with a desk, a clock and a recorder.
class Session {
public:
  Session(std::size_t user, std::uint32_t seed, SnapsBy by)
      : user_(SimulatedUser::all()[user]), chance_(static_cast<std::uint32_t>(user), seed), by_(by) {}

  std::vector<ShadowRecord> record(std::size_t count) {
    while (memory_->records.size() < count) dragOnce();
    return memory_->records;
  }

private:
  void dragOnce() {
    const SimulatedDrag drag = SimulatedDrag::make(user_, chance_, by_);
    recorder_.dragMoved(window);
    const auto features = DragFeatures::make(drag.trace, SimulatedDrag::display, SimulatedDrag::neighbours);
    if (!features) return;
    const bool snapped = drag.decisive <= DragIntentModel::todaysEdge;
    recorder_.release(window, *features, {SimulatedDrag::display.width, SimulatedDrag::display.height},
                      snapped ? std::optional(drag.zone) : std::nullopt, drag.zone);
    followUp(drag, snapped);
    wait(chance_.between(60, 1800));
    recorder_.tick();
  }

  /// What was not wanted is put right, if at all, after a time that is now and then too long to be seen.
  void followUp(const SimulatedDrag& drag, bool snapped) {
    const bool wanted = drag.wantsSnap != chance_.happens(user_.whims);
    if (wanted == snapped) return;
    if (!chance_.happens(snapped ? user_.undoes : user_.fixes)) return;
    wait(0.5 + (followUpSeconds + 2) * chance_.share() * chance_.share());
    if (!snapped) return recorder_.actionPerformed(window, drag.zone);
    if (chance_.happens(0.5)) return recorder_.actionPerformed(window, SnapAction::restore);
    recorder_.dragMoved(window);
  }

  void wait(double seconds) {
    now_ += std::chrono::round<Date::duration>(std::chrono::duration<double>(seconds));
  }

  const SimulatedUser& user_;
  Chance chance_;
  SnapsBy by_;
  Date now_ = std::chrono::sys_days{std::chrono::year{2026} / 1 / 1};
  std::shared_ptr<Memory> memory_ = std::make_shared<Memory>();
  ShadowRecorder recorder_{memory_, [this] { return now_; }};
};

}  // namespace

std::vector<ShadowRecord> DragSimulation::log(std::size_t user, std::uint32_t seed, std::size_t records,
                                              SnapsBy by) {
  return Session(user, seed, by).record(records);
}

}  // namespace tilwin
