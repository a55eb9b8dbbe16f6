#include "tools/script/script_fields.h"

#include <array>
#include <limits>

namespace quillmark {
namespace {

template <class Member>
struct MemberParts;
template <class Of, class Type>
struct MemberParts<Type Of::*> {
  using Record = Of;
  using Value = Type;
};

template <class Value>
inline constexpr bool kIsNumber = requires(Value value) {
  value.value();
};

template <class Record, class Raw>
constexpr NumberField<Record> FieldOfType(std::string_view name, Meaning meaning, Games games) {
  return {.name = name,
          .meaning = meaning,
          .games = games,
          .isArray = false,
          .count = 1,
          .lowest = std::numeric_limits<Raw>::min(),
          .highest = std::numeric_limits<Raw>::max(),
          .get = nullptr,
          .set = nullptr};
}

template <auto Member>
constexpr auto Describe(std::string_view name, Meaning meaning = Meaning::Number,
                        Games games = Games::Both) {
  using Record = typename MemberParts<decltype(Member)>::Record;
  using Value = typename MemberParts<decltype(Member)>::Value;
  if constexpr (kIsNumber<Value>) {
    auto field = FieldOfType<Record, typename Value::RawType>(name, meaning, games);
    field.get = [](const Record& record, std::size_t) -> std::int64_t {
      return (record.*Member).value();
    };
    field.set = [](Record& record, std::size_t, std::int64_t value) { record.*Member = value; };
    return field;
  } else {
    using Number = std::remove_cvref_t<decltype(std::declval<Value&>()[0])>;
    auto field = FieldOfType<Record, typename Number::RawType>(name, meaning, games);
    field.isArray = true;
    field.count = Value::size();
    field.get = [](const Record& record, std::size_t i) -> std::int64_t {
      return (record.*Member)[i].value();
    };
    field.set = [](Record& record, std::size_t i, std::int64_t value) {
      (record.*Member)[i] = value;
    };
    return field;
  }
}

constexpr std::array kScriptFields = {Describe<&ScriptModel::ScriptFlags>("ScriptFlags"),
                                      Describe<&ScriptModel::ScriptFrameRate>("ScriptFrameRate"),
                                      Describe<&ScriptModel::ScriptSecurity>("ScriptSecurity")};

using Level = LevelRecord;
// `UVRotateOn` is not among them: a save looks at the value alone.
constexpr std::array kLevelFields = {
    Describe<&Level::NameString>("NameString", Meaning::String),
    Describe<&Level::FileNameIndex>("FileNameIndex", Meaning::FileName),
    Describe<&Level::LevelFlags>("LevelFlags", Meaning::Flags),
    Describe<&Level::AudioTrack>("AudioTrack"),
    Describe<&Level::Fmv>("Fmv"),
    Describe<&Level::Cut>("Cut"),
    Describe<&Level::ResetHub>("ResetHub", Meaning::Number, Games::Tr4),
    Describe<&Level::Layer1On>("Layer1On", Meaning::OnOff),
    Describe<&Level::Layer1>("Layer1"),
    Describe<&Level::Layer2On>("Layer2On", Meaning::OnOff),
    Describe<&Level::Layer2>("Layer2"),
    Describe<&Level::UVRotate>("UVRotate"),
    Describe<&Level::LensFlareOn>("LensFlareOn", Meaning::OnOff, Games::Tr4),
    Describe<&Level::LensFlarePos>("LensFlarePos", Meaning::Number, Games::Tr4),
    Describe<&Level::LensFlareColour>("LensFlareColour", Meaning::Number, Games::Tr4),
    Describe<&Level::MirrorOn>("MirrorOn", Meaning::OnOff, Games::Tr4),
    Describe<&Level::MirrorRoom>("MirrorRoom", Meaning::Number, Games::Tr4),
    Describe<&Level::MirrorValue>("MirrorValue", Meaning::Hex, Games::Tr4),
    Describe<&Level::FogOn>("FogOn", Meaning::OnOff, Games::Tr4),
    Describe<&Level::Fog>("Fog", Meaning::Number, Games::Tr4),
    Describe<&Level::LegendOn>("LegendOn", Meaning::OnOff, Games::Tr4),
    Describe<&Level::Legend>("Legend", Meaning::String, Games::Tr4),
    Describe<&Level::Camera>("Camera", Meaning::Number, Games::Tr4),
    Describe<&Level::CameraRoom>("CameraRoom", Meaning::Number, Games::Tr4)};

constexpr std::array kObjectFields = {Describe<&LevelObject::Kind>("Kind", Meaning::Kind),
                                      Describe<&LevelObject::Id>("Id"),
                                      Describe<&LevelObject::Combo>("Combo", Meaning::Combo),
                                      Describe<&LevelObject::StringId>("StringId", Meaning::String),
                                      Describe<&LevelObject::Params>("Params")};

constexpr std::array kCutFields = {Describe<&CutEntry::Type>("Type"),
                                   Describe<&CutEntry::Value>("Value")};

constexpr NumberField<Int16> WordItself() {
  auto field = FieldOfType<Int16, std::int16_t>("", Meaning::Number, Games::Both);
  field.get = [](const Int16& word, std::size_t) -> std::int64_t { return word.value(); };
  field.set = [](Int16& word, std::size_t, std::int64_t value) { word = value; };
  return field;
}
constexpr std::array kWordFields = {WordItself()};

constexpr std::array<ExtensionField, 6> kExtensions = {{{"PsxLevelExt", &ScriptModel::PsxLevelExt},
                                                        {"PsxCutExt", &ScriptModel::PsxCutExt},
                                                        {"PsxFmvExt", &ScriptModel::PsxFmvExt},
                                                        {"PcLevelExt", &ScriptModel::PcLevelExt},
                                                        {"PcCutExt", &ScriptModel::PcCutExt},
                                                        {"PcFmvExt", &ScriptModel::PcFmvExt}}};

constexpr std::array<std::string_view, kObjectKindCount> kKinds = {
    "Puzzle", "Key", "Pickup", "PuzzleCombo", "KeyCombo", "PickupCombo", "Examine"};

constexpr std::array<std::string_view, 16> kFlags = {
    "YoungLara", "Weather", "Horizon",      "Layer1",        "Layer2",   "StarField",
    "Lightning", "Train",   "Pulse",        "ColAddHorizon", "ResetHUB", "LensFlare",
    "Timer",     "0x2000",  "RemoveAmulet", "NoLevel"};

}  // namespace

bool HasField(std::uint8_t game, Games games) {
  if (game == kAnyGame || games == Games::Both) return true;
  return (games == Games::Tr4) == (game == kTr4);
}

std::span<const NumberField<ScriptModel>> FieldsOf(const ScriptModel&) { return kScriptFields; }
std::span<const NumberField<LevelRecord>> FieldsOf(const LevelRecord&) { return kLevelFields; }
std::span<const NumberField<LevelObject>> FieldsOf(const LevelObject&) { return kObjectFields; }
std::span<const NumberField<CutEntry>> FieldsOf(const CutEntry&) { return kCutFields; }
std::span<const NumberField<Int16>> FieldsOf(const Int16&) { return kWordFields; }

std::span<const ExtensionField> ExtensionFields() { return kExtensions; }
std::span<const std::string_view> KindNames() { return kKinds; }
std::span<const std::string_view> FlagNames() { return kFlags; }

bool IsCombination(ObjectKind kind) {
  return kind == ObjectKind::PuzzleCombo || kind == ObjectKind::KeyCombo ||
         kind == ObjectKind::PickupCombo;
}

std::string_view GameName(std::uint8_t game) { return game == kTr4 ? "TR4" : "TR5"; }

}  // namespace quillmark
