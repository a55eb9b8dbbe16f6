#include "core/opcode_table.h"

#include <utility>

namespace quillmark {
namespace {

using Level = LevelRecord;

// Elements that both games have, with the same opcodes and operands.
const Element& Film() {
  static const Element element{"FMV", 0x80, 0x80, Values{{&Level::Fmv}, Written::IfNotZero}};
  return element;
}
const Element& LevelClose() {
  static const Element element{
      "Level", 0x81, 0x81,
      Closing{false,
              {&Level::NameString, &Level::LevelFlags, &Level::FileNameIndex, &Level::AudioTrack}}};
  return element;
}
const Element& Cut() {
  static const Element element{"Cut", 0x84, 0x84, Values{{&Level::Cut}, Written::IfNotZero}};
  return element;
}
const Element& CutTypes() {
  static const Element element{"CutType", 0x85, 0x88, CutList{}};
  return element;
}
const Element& LayerOne() {
  static const Element element{"Layer1", 0x89, 0x89,
                               Values{{&Level::Layer1}, Written::IfOn, &Level::Layer1On}};
  return element;
}
const Element& LayerTwo() {
  static const Element element{"Layer2", 0x8a, 0x8a,
                               Values{{&Level::Layer2}, Written::IfOn, &Level::Layer2On}};
  return element;
}
const Element& Rotation() {
  // Kept as it is: the value decides, not the on/off word.
  static const Element element{"UVRotate", 0x8b, 0x8b,
                               Values{{&Level::UVRotate}, Written::IfNotZero, &Level::UVRotateOn}};
  return element;
}
const Element& AnimatingMip() {
  static const Element element{"AnimatingMIP", 0x90, 0x90, MipList{}};
  return element;
}

const StreamFormat& Tr4Format() {
  static const StreamFormat format(
      "TR4",
      {{"Key", 0x93, 0x9e, Objects{ObjectKind::Key}},
       {"Puzzle", 0x9f, 0xaa, Objects{ObjectKind::Puzzle}},
       {"Pickup", 0xab, 0xae, Objects{ObjectKind::Pickup}},
       {"Examine", 0xaf, 0xb1, Objects{ObjectKind::Examine}},
       {"KeyCombo", 0xb2, 0xc1, Objects{ObjectKind::KeyCombo}},
       {"PuzzleCombo", 0xc2, 0xd1, Objects{ObjectKind::PuzzleCombo}},
       {"PickupCombo", 0xd2, 0xd9, Objects{ObjectKind::PickupCombo}},
       Film(),
       Rotation(),
       LayerOne(),
       LayerTwo(),
       {"Legend", 0x8c, 0x8c, Values{{&Level::Legend}, Written::IfOn, &Level::LegendOn}},
       Cut(),
       CutTypes(),
       {"LensFlare", 0x8d, 0x8d,
        Values{
            {&Level::LensFlarePos, &Level::LensFlareColour}, Written::IfOn, &Level::LensFlareOn}},
       {"Fog", 0x8f, 0x8f, Values{{&Level::Fog}, Written::IfOn, &Level::FogOn}},
       {"Mirror", 0x8e, 0x8e,
        Values{{&Level::MirrorRoom, &Level::MirrorValue}, Written::IfOn, &Level::MirrorOn}},
       {"LoadCamera", 0x91, 0x91, Values{{&Level::Camera, &Level::CameraRoom}, Written::Always}},
       {"ResetHUB", 0x92, 0x92, Values{{&Level::ResetHub}, Written::IfNotZero}},
       AnimatingMip(),
       {"Title", 0x82, 0x82,
        Closing{true,
                {{&Level::LevelFlags, Kept::AsZero},
                 {&Level::FileNameIndex, Kept::AsZero},
                 &Level::AudioTrack}}},
       LevelClose()});
  return format;
}

const StreamFormat& Tr5Format() {
  static const StreamFormat format(
      "TR5",
      {{"Key", 0x92, 0x99, Objects{ObjectKind::Key}},
       {"Puzzle", 0x9e, 0xa5, Objects{ObjectKind::Puzzle}},
       {"Pickup", 0xaa, 0xad, Objects{ObjectKind::Pickup}},
       // Kept as it is: the upper half of the range is read and not written.
       {"PuzzleCombo", 0xc1, 0xd0, Objects{ObjectKind::PuzzleCombo, 0xc8}},
       Film(),
       Rotation(),
       LayerOne(),
       LayerTwo(),
       Cut(),
       CutTypes(),
       {"Tr5ListA", 0xd9, 0xd9, WordList{&Level::Tr5ListACount, &Level::Tr5ListA}},
       {"Tr5ListB", 0xda, 0xda, WordList{&Level::Tr5ListBCount, &Level::Tr5ListB}},
       AnimatingMip(),
       {"Title", 0x82, 0x82,
        Closing{true,
                {&Level::LevelFlags, {&Level::FileNameIndex, Kept::AsZero}, &Level::AudioTrack}}},
       LevelClose()});
  return format;
}

}  // namespace

StreamFormat::StreamFormat(std::string_view game, std::vector<Element> elements)
    : game_(game), elements_(std::move(elements)) {
  for (const Element& element : elements_) {
    for (unsigned opcode = element.first; opcode <= element.last; ++opcode) {
      byOpcode_[opcode] = &element;
    }
  }
}

const StreamFormat& FormatOf(const Byte& kind) { return kind == kTr4 ? Tr4Format() : Tr5Format(); }

}  // namespace quillmark
