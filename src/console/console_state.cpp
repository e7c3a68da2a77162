#include <string>
#include <type_traits>
#include <variant>

#include "config/configure.h"
#include "console/console_command.h"
#include "console/json_text.h"
#include "view/state_record.h"
namespace feltmaster {

namespace {

std::string FlagObject(const ScriptFlag& flag) {
  return JsonObject()
      .Add("FlagName", flag.FlagName)
      .Add("FlagValue", flag.FlagValue)
      .Add("FlagChanged", flag.FlagChanged)
      .Text();
}

std::string ValueAsJson(const StateValue& value) {
  if (const auto* flag = std::get_if<ScriptFlag>(&value)) return FlagObject(*flag);
  return std::visit(
      [](const auto& plain) -> std::string {
        if constexpr (std::is_same_v<std::decay_t<decltype(plain)>, ScriptFlag>) {
          return {};
        } else {
          return JsonOf(plain);
        }
      },
      value);
}

// An element, or the list of elements under the indices given so far.
std::string StateAsJson(Game& game, const StateName& entry, StateIndex index, int indices) {
  if (indices == entry.rank) return ValueAsJson(entry.read(game, index));
  const StateBounds bounds = BoundsOf(game, entry, indices);
  std::string list = "[";
  for (int i = bounds.first; i <= bounds.last; ++i) {
    if (i > bounds.first) list += ',';
    index[static_cast<std::size_t>(indices)] = i;
    list += StateAsJson(game, entry, index, indices + 1);
  }
  return list + ']';
}

Reply Get(Console& console, Arguments& args) {
  StateIndex index{};
  int indices = 0;
  const StateName* entry = args.Name(console.Table, index, indices);
  args.End();
  if (args.Failed()) return Refused(args);
  const std::string json = StateAsJson(console.Table, *entry, index, indices);
  if (entry->type == StateType::kText && indices == entry->rank) {
    return Done(json, std::get<std::string>(entry->read(console.Table, index)) + '\n');
  }
  return Done(json, json + '\n');
}

Reply Set(Console& console, Arguments& args) {
  StateIndex index{};
  int indices = 0;
  const StateName* entry = args.Name(console.Table, index, indices);
  if (args.Failed()) return Refused(args);
  const std::string name(entry->name);
  if (entry->write == nullptr) return Refused("NAME " + name + " can be read, not written.");
  if (indices != entry->rank) {
    return Refused("NAME " + name + " needs " + std::to_string(entry->rank) +
                   (entry->rank == 1 ? " index." : " indices."));
  }
  const StateValue value = args.Value(entry->type);
  args.End();
  if (args.Failed()) return Refused(args);
  if (!entry->write(console.Table, index, value)) {
    return Refused("VALUE " + ValueAsJson(value) + " is none that " + name + " can hold.");
  }
  return Done();
}

Reply ConfigureSetting(Console& console, Arguments& args) {
  if (args.Take("check")) {
    args.End();
    if (args.Failed()) return Refused(args);
    return Truth(CheckLimits(console.Table));
  }
  const std::string name = args.NameWord();
  const std::string value = args.Rest("VALUE");
  if (args.Failed()) return Refused(args);
  return Refused(Configure(console.Table, name, value));
}

Reply State(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  JsonObject object;
  std::string words;
  for (const StateName& entry : StateRecord()) {
    const std::string json = StateAsJson(console.Table, entry, {}, 0);
    object.AddJson(entry.name, json);
    if (console.Surface.Paper != nullptr) words += std::string(entry.name) + " = " + json + '\n';
  }
  return Done(object.Text(), std::move(words));
}

constexpr Command kStateCommands[] = {
    {"get", "NAME", "reads the state record", Get},
    {"set", "NAME VALUE", "writes the state record, without any check of the rules", Set},
    {"configure", "NAME VALUE|check", "changes a setting as its control does, or checks them all",
     ConfigureSetting},
    {"state", "", "the whole state record", State},
};

}  // namespace

CommandTable StateCommands() {
  return kStateCommands;
}

}  // namespace feltmaster
