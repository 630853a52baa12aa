#include <algorithm>
#include <array>
#include <chrono>
#include <vector>

#include "core/drag/DragIntentModel.h"
#include "core/drag/ShadowRecordCoding.h"
#include "core/drag/ShadowRecorder.h"
#include "core/drag/ShadowReport.h"
#include "tests/core/JsonText.h"
#include "tests/core/drag/Reference.h"

namespace tilwin {
namespace {

void expectSameFeatures(const DragFeatures& ours, const DragFeatures& theirs) {
  EXPECT_TRUE(agree(ours.distance, theirs.distance)) << ours.distance << " for " << theirs.distance;
  EXPECT_TRUE(agree(ours.speed, theirs.speed)) << ours.speed << " for " << theirs.speed;
  EXPECT_TRUE(agree(ours.dwell, theirs.dwell)) << ours.dwell << " for " << theirs.dwell;
  EXPECT_TRUE(agree(ours.settled, theirs.settled)) << ours.settled << " for " << theirs.settled;
  EXPECT_EQ(ours.neighbour, theirs.neighbour);
}

TEST(DragReference, AgreesOnTheFeaturesOfTenThousandTraces) {
  compareWithReference("traces", 1, 10'000, [](Columns& columns) {
    const Rect frame = columns.rect();
    const NeighbourEdges neighbours = columns.edges();
    DragTrace trace;
    for (std::int64_t left = columns.whole(); left > 0; --left)
      trace.append({columns.number(), columns.number(), columns.number()});
    const auto ours = DragFeatures::make(trace, frame, neighbours);
    ASSERT_EQ(ours.has_value(), columns.flag());
    if (!ours) return;
    expectSameFeatures(*ours, columns.features());
    for (const double entry : ours->vector()) EXPECT_TRUE(agree(entry, columns.number()));
  });
}

TEST(DragReference, AgreesOnTheNeighboursOfTenThousandDisplays) {
  compareWithReference("neighbours", 1, 10'000, [](Columns& columns) {
    const auto display = [&columns] {
      const auto id = static_cast<std::uint32_t>(columns.whole());
      return DisplayInfo{.id = id, .frame = columns.rect()};
    };
    const DisplayInfo own = display();
    std::vector<DisplayInfo> among(static_cast<std::size_t>(columns.whole()));
    std::generate(among.begin(), among.end(), display);
    EXPECT_EQ(NeighbourEdges::around(own, among), columns.edges());
  });
}

/// One lesson of a model, before and after which everything must be as the reference has it.
void takeLesson(DragIntentModel& model, Columns& columns) {
  const DragFeatures features = columns.features();
  const bool snap = columns.flag();
  const double weight = columns.number();
  EXPECT_TRUE(agree(model.probability(features), columns.number()));
  EXPECT_EQ(model.learnedWouldSnap(features), columns.flag());
  EXPECT_EQ(model.shouldSnap(features), columns.flag());
  model.learn(features, snap, weight);
  EXPECT_EQ(model.updates, columns.whole());
  EXPECT_EQ(model.trusted, columns.flag());
  EXPECT_TRUE(agree(model.modelOnlyRight, columns.number()));
  EXPECT_TRUE(agree(model.ruleOnlyRight, columns.number()));
  EXPECT_TRUE(agree(model.evidence(), columns.number()));
  for (const double live : model.weights) EXPECT_TRUE(agree(live, columns.number()));
  for (const double averaged : model.averaged) EXPECT_TRUE(agree(averaged, columns.number()));
}

struct ModelReference : testing::TestWithParam<int> {};

TEST_P(ModelReference, AgreesOnEveryWeightAndEveryChangeOfTrustOverTenThousandLessons) {
  DragIntentModel model;
  int changesOfTrust = 0;
  compareWithReference("lessons", GetParam(), 10'000, [&](Columns& columns) {
    const bool trusted = model.trusted;
    takeLesson(model, columns);
    if (model.trusted != trusted) ++changesOfTrust;
  });
  EXPECT_GE(changesOfTrust, 2) << "the lessons do not try what they are to try";
}

INSTANTIATE_TEST_SUITE_P(Seeds, ModelReference, testing::Values(1, 2, 4, 7));

struct LineList final : ShadowSink {
  void append(const ShadowRecord& record) override { lines.push_back(written(record)); }
  std::vector<std::string> lines;
};

std::optional<SnapAction> optionalAction(Columns& columns) {
  const auto name = columns.optionalWord();
  return name ? SnapActions::fromRawValue(*name) : std::nullopt;
}

void release(ShadowRecorder& recorder, std::int64_t windowID, Columns& columns) {
  const DragFeatures features = columns.features();
  const ShadowRecorder::ScreenSize screen{columns.number(), columns.number()};
  const auto snapped = optionalAction(columns);
  const auto intended = optionalAction(columns);
  recorder.release(windowID, features, screen, snapped, intended);
}

struct Event {
  std::string_view kind;
  void (*act)(ShadowRecorder& recorder, std::int64_t windowID, Columns& columns);
};

constexpr std::array events = std::to_array<Event>({
    {"release", release},
    {"moved",
     [](ShadowRecorder& recorder, std::int64_t windowID, Columns&) { recorder.dragMoved(windowID); }},
    {"action",
     [](ShadowRecorder& recorder, std::int64_t windowID, Columns& columns) {
       recorder.actionPerformed(windowID, SnapActions::fromRawValue(columns.word()).value());
     }},
    {"tick", [](ShadowRecorder& recorder, std::int64_t, Columns&) { recorder.tick(); }},
    {"flush", [](ShadowRecorder& recorder, std::int64_t, Columns&) { recorder.flush(); }},
    {"discard", [](ShadowRecorder& recorder, std::int64_t, Columns&) { recorder.discard(); }},
});

TEST(DragReference, AgreesOnEveryLineOfTenThousandRecordings) {
  compareWithReference("recordings", 1, 10'000, [](Columns& columns) {
    const auto log = std::make_shared<LineList>();
    Date now;
    ShadowRecorder recorder(log, [&now] { return now; });
    for (std::int64_t left = columns.whole(); left > 0; --left) {
      now = Date(std::chrono::microseconds(columns.whole()));
      const std::string_view kind = columns.word();
      const std::int64_t windowID = columns.whole();
      const auto* const event =
          std::find_if(events.begin(), events.end(), [&](const Event& each) { return each.kind == kind; });
      ASSERT_NE(event, events.end()) << kind;
      event->act(recorder, windowID, columns);
    }
    ASSERT_EQ(log->lines.size(), static_cast<std::size_t>(columns.whole()));
    for (const std::string& line : log->lines) EXPECT_EQ(line, columns.word());
  });
}

ShadowRecord recordIn(Columns& columns) {
  ShadowRecord record;
  record.at = Date(std::chrono::seconds(columns.whole()));
  const DragFeatures features = columns.features();
  record.distance = features.distance;
  record.speed = features.speed;
  record.dwell = features.dwell;
  record.settled = features.settled;
  record.neighbour = features.neighbour;
  record.rule = columns.flag();
  record.zone = columns.optionalWord();
  record.follow = DragFollowUps::fromRawValue(columns.word()).value();
  return record;
}

std::optional<Date> optionalDate(Columns& columns) {
  const auto text = columns.optionalWord();
  if (!text) return std::nullopt;
  return Date(std::chrono::seconds(std::stoll(std::string(*text))));
}

/// By the place of each in `ShadowSummary::Verdict`.
constexpr std::array<std::string_view, 5> verdictNames{"notEnoughDrags", "tooFewCorrections",
                                                       "modelWouldHelp", "ruleIsBetter", "noClearDifference"};

void expectSameSummary(const ShadowSummary& ours, Columns& columns) {
  EXPECT_EQ(ours.candidates, columns.whole());
  EXPECT_EQ(ours.ruleSnaps, columns.whole());
  EXPECT_EQ(ours.corrected, columns.whole());
  EXPECT_EQ(ours.keptSnaps, columns.whole());
  EXPECT_EQ(ours.redragged, columns.whole());
  EXPECT_EQ(ours.leftAlone, columns.whole());
  EXPECT_EQ(ours.modelDiffers, columns.whole());
  EXPECT_EQ(ours.modelRight, columns.whole());
  EXPECT_EQ(ours.ruleRight, columns.whole());
  EXPECT_EQ(ours.modelTrusted, columns.flag());
  EXPECT_EQ(ours.firstDay, optionalDate(columns));
  EXPECT_EQ(ours.lastDay, optionalDate(columns));
  EXPECT_EQ(verdictNames.at(ours.verdict().index()), columns.word());
  EXPECT_TRUE(agree(ours.evidence(), columns.number()));
  EXPECT_TRUE(agree(ours.falseSnapRate(), columns.optionalNumber()));
  EXPECT_TRUE(agree(ours.missRate(), columns.optionalNumber()));
}

/// The text, its days as the reference writes them.
std::string reportOf(const ShadowSummary& summary) {
  std::string text = ShadowReport::text(summary, Date());
  if (!summary.firstDay) return text;
  const std::size_t start = text.find("Period: ");
  const auto day = [](Date date) { return Iso8601::text(date).value().substr(0, 10); };
  return text.replace(start, text.find('\n', start) - start,
                      "Period: " + day(*summary.firstDay) + " to " + day(*summary.lastDay));
}

TEST(DragReference, AgreesOnTheSummaryAndTheTextOfAThousandLogs) {
  compareWithReference("summaries", 1, 1'000, [](Columns& columns) {
    std::vector<ShadowRecord> records(static_cast<std::size_t>(columns.whole()));
    std::generate(records.begin(), records.end(), [&columns] { return recordIn(columns); });
    const ShadowSummary ours = ShadowReport::summarize(records);
    expectSameSummary(ours, columns);
    EXPECT_EQ(reportOf(ours), read<std::string>(columns.word()));
  });
}

}  // namespace
}  // namespace tilwin
