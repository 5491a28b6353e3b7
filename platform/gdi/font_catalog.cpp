#include "platform/gdi/font_catalog.h"

#include <fontconfig/fontconfig.h>
#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <tuple>

namespace quenzel7::gdi {
namespace {

constexpr int kBoldFrom = 550;
constexpr int kRegularWeight = 400;

bool IsOfFamily(const FaceInfo& face, const std::string& name) {
  return std::any_of(face.families.begin(), face.families.end(), [&](const std::string& family) {
    return strcasecmp(family.c_str(), name.c_str()) == 0;
  });
}

template <typename T, auto kDestroy>
using Owned = std::unique_ptr<T, decltype([](T* object) { kDestroy(object); })>;
using Pattern = Owned<FcPattern, FcPatternDestroy>;

int NumberIn(FcPattern* pattern, const char* name, int fallBack) {
  int value = fallBack;
  return FcPatternGetInteger(pattern, name, 0, &value) == FcResultMatch ? value : fallBack;
}

std::string TextIn(FcPattern* pattern, const char* name, int number) {
  FcChar8* text = nullptr;
  if (FcPatternGetString(pattern, name, number, &text) != FcResultMatch) return {};
  return reinterpret_cast<const char*>(text);
}

FaceInfo FaceOf(FcPattern* pattern) {
  FaceInfo face;
  for (int i = 0;; ++i) {
    const std::string family = TextIn(pattern, FC_FAMILY, i);
    if (family.empty()) break;
    face.families.push_back(family);
  }
  face.file = TextIn(pattern, FC_FILE, 0);
  face.index = NumberIn(pattern, FC_INDEX, 0);
  face.weight = FcWeightToOpenType(NumberIn(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR));
  face.isSlanted = NumberIn(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
  face.width = NumberIn(pattern, FC_WIDTH, FC_WIDTH_NORMAL);
  FcCharSet* characters = nullptr;
  if (FcPatternGetCharSet(pattern, FC_CHARSET, 0, &characters) == FcResultMatch) {
    const std::shared_ptr<FcCharSet> kept(FcCharSetCopy(characters), FcCharSetDestroy);
    face.covers = [kept](char32_t character) { return FcCharSetHasChar(kept.get(), character) != FcFalse; };
  }
  return face;
}

std::vector<FaceInfo> AllFaces(FcConfig* config) {
  std::vector<FaceInfo> faces;
  const Pattern wanted(FcPatternBuild(nullptr, FC_OUTLINE, FcTypeBool, FcTrue, FC_VARIABLE, FcTypeBool,
                                      FcFalse, static_cast<char*>(nullptr)));
  const Owned<FcObjectSet, FcObjectSetDestroy> fields(FcObjectSetBuild(
      FC_FAMILY, FC_FILE, FC_INDEX, FC_WEIGHT, FC_SLANT, FC_WIDTH, FC_CHARSET, static_cast<char*>(nullptr)));
  const Owned<FcFontSet, FcFontSetDestroy> found(FcFontList(config, wanted.get(), fields.get()));
  if (found == nullptr) return faces;
  for (int i = 0; i < found->nfont; ++i) faces.push_back(FaceOf(found->fonts[i]));
  // The list comes in an order that changes from run to run; a choice between equals must not.
  std::sort(faces.begin(), faces.end(), [](const FaceInfo& a, const FaceInfo& b) {
    return std::tie(a.file, a.index) < std::tie(b.file, b.index);
  });
  return faces;
}

/// The family that stands for one of the three generic ones.
std::string FamilyFor(FcConfig* config, const char* generic) {
  const Pattern wanted(FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, generic, FC_OUTLINE, FcTypeBool,
                                      FcTrue, static_cast<char*>(nullptr)));
  FcConfigSubstitute(config, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  const Pattern found(FcFontMatch(config, wanted.get(), &result));
  return found != nullptr ? TextIn(found.get(), FC_FAMILY, 0) : std::string();
}

}  // namespace

bool IsBold(int weight) { return weight >= kBoldFrom; }

int WantedWeight(const LOGFONT& description) {
  return description.lfWeight == 0 ? kRegularWeight : std::clamp(description.lfWeight, 1, 1000);
}

std::string FaceNameOf(const LOGFONT& description) {
  return {description.lfFaceName, strnlen(description.lfFaceName, sizeof description.lfFaceName)};
}

FontCatalog FontCatalog::Load() {
  FontCatalog found;
  const Owned<FcConfig, FcConfigDestroy> config(FcInitLoadConfigAndFonts());
  if (config == nullptr) return found;
  found.faces = AllFaces(config.get());
  found.monospace = FamilyFor(config.get(), "monospace");
  found.serif = FamilyFor(config.get(), "serif");
  found.sansSerif = FamilyFor(config.get(), "sans-serif");
  return found;
}

const FontCatalog& FontCatalog::OfMachine() {
  static const FontCatalog catalog = Load();
  return catalog;
}

std::vector<const FaceInfo*> FontCatalog::Ranked(const LOGFONT& description) const {
  const std::string name = FaceNameOf(description);
  const std::uint32_t pitch = description.lfPitchAndFamily & 0x03u,
                      family = description.lfPitchAndFamily & 0xF0u;
  const bool isFixed = pitch == FIXED_PITCH || family == FF_MODERN;
  const std::string& substitute = isFixed ? monospace : family == FF_ROMAN ? serif : sansSerif;
  const int weight = WantedWeight(description);
  const auto rank = [&](const FaceInfo& face) {
    const int group = IsOfFamily(face, name) ? 0 : IsOfFamily(face, substitute) ? 1 : 2;
    return std::make_tuple(group, face.isSlanted != (description.lfItalic != 0),
                           IsBold(face.weight) != IsBold(weight), std::abs(face.width - 100),
                           std::abs(face.weight - weight));
  };
  std::vector<const FaceInfo*> ranked;
  for (const FaceInfo& face : faces) ranked.push_back(&face);
  std::stable_sort(ranked.begin(), ranked.end(),
                   [&](const FaceInfo* a, const FaceInfo* b) { return rank(*a) < rank(*b); });
  return ranked;
}

std::vector<const FaceInfo*> FontCatalog::Covering(char32_t character) const {
  std::vector<const FaceInfo*> found;
  for (const FaceInfo& face : faces) {
    if (face.covers(character)) found.push_back(&face);
  }
  std::stable_partition(found.begin(), found.end(),
                        [](const FaceInfo* face) { return IsOfFamily(*face, "Unifont"); });
  return found;
}

}  // namespace quenzel7::gdi
