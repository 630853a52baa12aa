#include "platform/qt/menu/BusMenu.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>

#include "platform/qt/menu/BusMenuTypes.h"
#include "tests/contract/MainLoop.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::contract {
namespace {

namespace bus = qt::bus;

constexpr const char* menuInterface = "com.canonical.dbusmenu";

/// A menu on the bus and a panel that speaks the protocol in all its forms.
struct BusMenuOnBus : testing::Test {
  BusMenuOnBus() { menu.offer(service); }

  /// Asks as another program does, while the main loop answers.
  QDBusMessage call(const QString& method, const QVariantList& arguments,
                    const QString& interface = menuInterface) {
    auto message = QDBusMessage::createMethodCall(service.baseService(), menu.path(), interface, method);
    message.setArguments(arguments);
    const auto answer = panel.asyncCall(message);
    runMainLoopUntil([&] { return answer.isFinished(); }, desktop::answerTimeout);
    return answer.reply();
  }
  bus::Layout layout(int depth = -1) {
    const auto reply = call("GetLayout", {0, depth, QStringList()}).arguments();
    return reply.size() == 2 ? qdbus_cast<bus::Layout>(reply[1]) : bus::Layout();
  }
  bool aboutToShow(int entry) { return call("AboutToShow", {entry}).arguments().value(0).toBool(); }

  MenuModel model{{MenuItem::command("snake_case & co", {"run", "first"}), MenuItem::separator(),
                   MenuItem::submenu("More", {MenuItem::command("Checked", {"run", "second"}, true)})}};
  int made = 0;
  std::vector<std::string> chosen;
  QDBusConnection service = QDBusConnection::sessionBus();
  QDBusConnection panel = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "test-panel");
  qt::BusMenu menu{[this] {
                     ++made;
                     return model;
                   },
                   [this](const MenuChoice& choice) { chosen.push_back(choice.argument); }};
};

TEST_F(BusMenuOnBus, HasTheEntriesWithTheirProperties) {
  const auto root = layout();
  ASSERT_EQ(root.children.size(), 3);
  EXPECT_EQ(root.children[0].properties.value("label").toString().toStdString(), "snake__case & co");
  EXPECT_EQ(root.children[1].properties.value("type").toString().toStdString(), "separator");
  EXPECT_EQ(root.children[2].properties.value("children-display").toString().toStdString(), "submenu");
  ASSERT_EQ(root.children[2].children.size(), 1);
  EXPECT_EQ(root.children[2].children[0].properties.value("toggle-state").toInt(), 1);
  EXPECT_EQ(layout(1).children[2].children.size(), 0);
}

TEST_F(BusMenuOnBus, ToldThatItOpensItSaysWhetherEntriesCameOrWent) {
  layout();
  EXPECT_FALSE(aboutToShow(0));
  model.items[0].title = "another title";
  EXPECT_FALSE(aboutToShow(0));
  EXPECT_EQ(layout().children[0].properties.value("label").toString().toStdString(), "another title");
  model.items.push_back(MenuItem::command("new", {"quit", ""}));
  EXPECT_TRUE(aboutToShow(0));
  EXPECT_EQ(layout().children.size(), 4);
}

TEST_F(BusMenuOnBus, IsNotMadeAgainWhenASubmenuOpens) {
  const int submenu = layout().children[2].entry;
  const int before = made;
  EXPECT_FALSE(aboutToShow(submenu));
  EXPECT_EQ(made, before);
}

TEST_F(BusMenuOnBus, AClickIsReportedThroughTheEventLoopAloneOrInAGroup) {
  const auto root = layout();
  const auto none = QVariant::fromValue(QDBusVariant(0));
  call("Event", {root.children[0].entry, "hovered", none, 0U});
  call("Event", {root.children[0].entry, "clicked", none, 0U});
  const QList<bus::Event> group{{root.children[2].children[0].entry, "clicked", QDBusVariant(0), 0},
                                {4711, "clicked", QDBusVariant(0), 0}};
  const auto unknown = call("EventGroup", {QVariant::fromValue(group)}).arguments();
  EXPECT_TRUE(runMainLoopUntil([&] { return chosen.size() == 2; }, desktop::answerTimeout));
  EXPECT_EQ(chosen, (std::vector<std::string>{"first", "second"}));
  EXPECT_EQ(qdbus_cast<QList<int>>(unknown.value(0)), QList<int>{4711});
}

TEST_F(BusMenuOnBus, AClickOnAnEntryThatHasJustGoneStillCounts) {
  const int first = layout().children[0].entry;
  model.items.erase(model.items.begin());
  EXPECT_TRUE(aboutToShow(0));
  call("Event", {first, "clicked", QVariant::fromValue(QDBusVariant(0)), 0U});
  EXPECT_TRUE(runMainLoopUntil([&] { return !chosen.empty(); }, desktop::answerTimeout));
}

TEST_F(BusMenuOnBus, AnswersForSeveralEntriesAtOnce) {
  const int first = layout().children[0].entry;
  const auto properties =
      call("GetGroupProperties", {QVariant::fromValue(QList<int>{first, 4711}), QStringList()}).arguments();
  const auto known = qdbus_cast<QList<bus::EntryProperties>>(properties.value(0));
  ASSERT_EQ(known.size(), 1);
  EXPECT_EQ(known[0].entry, first);
  model.items.pop_back();
  const auto outdated = call("AboutToShowGroup", {QVariant::fromValue(QList<int>{first, 0})}).arguments();
  EXPECT_EQ(qdbus_cast<QList<int>>(outdated.value(0)), QList<int>{0});
}

TEST_F(BusMenuOnBus, AskedForNoEntryInParticularItAnswersForAll) {
  const auto entries = layout().children;
  const auto properties =
      call("GetGroupProperties", {QVariant::fromValue(QList<int>()), QStringList()}).arguments();
  EXPECT_GT(qdbus_cast<QList<bus::EntryProperties>>(properties.value(0)).size(), entries.size());
}

TEST_F(BusMenuOnBus, SpeaksVersionThreeAndDescribesItself) {
  const auto version = call("Get", {menuInterface, "Version"}, "org.freedesktop.DBus.Properties");
  EXPECT_EQ(qvariant_cast<QDBusVariant>(version.arguments().value(0)).variant().toUInt(), 3U);
  const auto text = call("Introspect", {}, "org.freedesktop.DBus.Introspectable").arguments();
  EXPECT_TRUE(text.value(0).toString().contains(R"xml(<arg type="(ia{sv}av)" direction="out"/>)xml"))
      << text.value(0).toString().toStdString();
}

TEST_F(BusMenuOnBus, RefusesCallsWithWrongArguments) {
  for (const auto& wrong : {QVariantList{}, QVariantList{"text"}, QVariantList{1, 2}}) {
    EXPECT_EQ(call("AboutToShow", wrong).type(), QDBusMessage::ErrorMessage);
  }
  EXPECT_EQ(call("NoSuchMethod", {}).type(), QDBusMessage::ErrorMessage);
  EXPECT_FALSE(aboutToShow(4711));
}

}  // namespace
}  // namespace tilwin::contract
