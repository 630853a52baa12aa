#include "platform/qt/commands/BusCommands.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QVariant>
#include <array>
#include <utility>
#include <vector>

#include "core/commands/CommandTable.h"

namespace tilwin::qt {
namespace {

using Words = std::vector<std::string>;

constexpr auto whoWatches = "On the session bus, the signal Happened tells what \"tilwin watch\" prints.";

/// A method that is one command, with a text for each of its parameters.
struct CommandMethod {
  const char* name;
  CommandId command;
};

constexpr std::array commandMethods = std::to_array<CommandMethod>({
    {"Snap", CommandId::snap},
    {"SnapToArea", CommandId::area},
    {"ApplyLayout", CommandId::layoutApply},
    {"SaveLayout", CommandId::layoutSave},
    {"DeleteLayout", CommandId::layoutDelete},
    {"Place", CommandId::place},
    {"Set", CommandId::set},
    {"ShowSettings", CommandId::settings},
    {"Quit", CommandId::quit},
});

/// A property that is what a listing command lists, by one member of its entries.
struct ListProperty {
  const char* name;
  const char* words;
  const char* member;
};

constexpr std::array listProperties = std::to_array<ListProperty>({
    {"Actions", "actions", "action"},
    {"Areas", "areas", "name"},
    {"Layouts", "layout list", "name"},
});

Words wordsOf(std::string_view text) {
  const auto space = text.find(' ');
  if (space == std::string_view::npos) return {std::string(text)};
  return {std::string(text.substr(0, space)), std::string(text.substr(space + 1))};
}

/// As a sentence without what a terminal shows before it.
QString sentence(const CommandReply& reply) {
  constexpr std::string_view prefix = "tilwin: ";
  const std::string_view problem = reply.problem;
  return QString::fromStdString(
             std::string(problem.starts_with(prefix) ? problem.substr(prefix.size()) : problem))
      .trimmed();
}

BusError errorOf(const CommandReply& reply) {
  const bool isWrongUse = reply.status == exit_status::wrongUse;
  return {QLatin1String(isWrongUse ? BusCommands::wrongUse : BusCommands::couldNot), sentence(reply)};
}

}  // namespace

class BusCommands::Object : public BusObject {
public:
  Object(Handler handler, std::string_view version)
      : BusObject(QLatin1String(BusCommands::path), QLatin1String(BusCommands::interfaceName)),
        handler_(std::move(handler)) {
    addMethod("Run", "as", "iss", [this](const auto& in) { return run(in[0].toStringList()); });
    for (const CommandMethod& row : commandMethods) addCommand(row);
    for (const ListProperty& row : listProperties) {
      addProperty(row.name, "as", [this, &row] { return QVariant(listed(row)); });
    }
    addProperty("Version", "s",
                [text = QString::fromUtf8(version.data(), static_cast<qsizetype>(version.size()))] {
                  return QVariant(text);
                });
    addSignal("Happened", "s");
  }

  void tell(const QString& line) {
    announce("Happened", {line});
    announceChangedProperties();
  }
  /// What is known to those who read the properties from now on.
  using BusObject::announceChangedProperties;

private:
  void addCommand(const CommandMethod& row) {
    const CommandSpec& spec = CommandTable::spec(row.command);
    const QString signature(static_cast<qsizetype>(spec.used().size()), QLatin1Char('s'));
    addMethod(row.name, signature, "", [this, &spec](const QVariantList& in) -> Answer {
      Words words = wordsOf(spec.words);
      for (const QVariant& each : in) words.push_back(each.toString().toStdString());
      const CommandReply reply = handler_(words);
      if (reply.status == exit_status::done) return QVariantList();
      return errorOf(reply);
    });
  }

  Answer run(const QStringList& arguments) {
    Words words;
    for (const QString& each : arguments) words.push_back(each.toStdString());
    CommandReply reply = handler_(words);
    if (reply.isWatching) reply = CommandReply::failed(exit_status::couldNot, whoWatches);
    return QVariantList{reply.status, QString::fromStdString(reply.output),
                        QString::fromStdString(reply.problem)};
  }

  [[nodiscard]] QStringList listed(const ListProperty& row) const {
    Words words = wordsOf(row.words);
    words.emplace_back("--json");
    const auto json = QJsonDocument::fromJson(QByteArray::fromStdString(handler_(words).output));
    QStringList names;
    for (const auto& entry : json.array())
      names.append(entry.toObject().value(QLatin1String(row.member)).toString());
    return names;
  }

  Handler handler_;
};

BusCommands::BusCommands(QDBusConnection bus, std::string_view version)
    : bus_(std::move(bus)), version_(version) {}

BusCommands::~BusCommands() {
  if (object_) bus_.unregisterObject(QLatin1String(path));
}

bool BusCommands::serve(Handler handler) {
  if (!bus_.isConnected()) return false;
  object_ = std::make_unique<Object>(std::move(handler), version_);
  object_->offer(bus_);
  object_->announceChangedProperties();
  // Another display's instance may have the name; then it passes on to this one when that ends. Not waited
  // for.
  bus_.send(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                           "org.freedesktop.DBus", "RequestName")
            << QLatin1String(service) << 0U);
  return true;
}

void BusCommands::tell(std::string_view line) {
  if (object_) object_->tell(QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())));
}

}  // namespace tilwin::qt
