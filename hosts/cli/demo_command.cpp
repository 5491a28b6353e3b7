#include <filesystem>
#include <string_view>

#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/demo_files.h"
#include "hosts/cli/drag.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/picture_sheet.h"
#include "hosts/cli/png_writer.h"
#include "hosts/cli/renderer.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

/// A drag of the demo: of the element that uses this memory bit, or, when that is in a group, of the whole
/// group.
struct DemoDrag {
  std::string_view operand;
  Long memoryBit;
  const char* told;
  Drag drag;
};

const DemoDrag kDrags[] = {
    {"TouchOprndAddr", 101, "the first knob is moved", {ePD_None, {{20, 0}, {40, 0}, {72, 0}}}},
    {"TouchOprndAddr",
     102,
     "the second knob is moved beyond the page",
     {ePD_None, {{-20, 0}, {-60, 0}, {-500, 0}}}},
    {"TouchOprndAddr",
     103,
     "the bar is stretched past its other end",
     {ePD_Right, {{-10, 0}, {-50, 0}, {-68, 0}}}},
    {"VisibleOpAddr", 61, "the evening is made smaller", {ePD_DownRight, {{-4, -2}, {-15, -10}}}},
    {"VisibleOpAddr", 60, "the wagon, groups in a group, goes to the fire", {ePD_None, {{-30, 0}, {-66, 0}}}},
    {"VisibleOpAddr", 60, "the wagon is pulled beyond the page", {ePD_None, {{-4, 0}, {-8, 0}, {500, 0}}}},
};

/// The push button that is deleted and brought back.
constexpr Long kDeletedTouch = 104;

constexpr int kPicturesDiffer = 1;

/// The element of the page that uses the memory bit, or the group that it is in.
ItfHmiElement& UserOf(const LoadedPage& page, std::string_view operand, Long memoryBit) {
  ItfHmiElement* found = nullptr;
  WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath& path) {
    if (automation::To<Long>(Read(element, operand)) == memoryBit)
      found = page.elements[path.front() - 1].get();
  });
  if (!found) throw UserError("demo page: no element uses MB " + std::to_string(memoryBit));
  return *found;
}

std::string Told(const Descriptor& place) {
  return "(" + std::to_string(place.xs) + ", " + std::to_string(place.ys) + ", " + std::to_string(place.dx) +
         ", " + std::to_string(place.dy) + ")";
}

std::string Told(enCollisionStatus status) {
  for (const auto& member : automation::EnumInfoOf<enCollisionStatus>::value.members) {
    if (member.value == status) return std::string(member.name);
  }
  return std::to_string(status);
}

void DragElements(ProjectSession& project, const LoadedPage& page, const Console& console) {
  automation::Variant map = FreeMap(page.info.panel.width, page.info.panel.height);
  for (const DemoDrag& demo : kDrags) {
    ItfHmiElement& element = UserOf(page, demo.operand, demo.memoryBit);
    const DragResult result = PerformDrag(element, demo.drag, map);
    SaveElement(project, element);
    console.out << "  drag       " << demo.told << ": " << Told(result.before) << " -> " << Told(result.after)
                << ", last step " << Told(result.status) << '\n';
  }
}

/// Deletes an element and brings it back as an undo does.
void DeleteAndRestore(ProjectSession& project, const LoadedPage& page, const Console& console) {
  ItfHmiElement& element = UserOf(page, "TouchOprndAddr", kDeletedTouch);
  const Long oldId = IdOf(element);
  DeleteElement(project, element);
  RestoreElement(project, element);
  console.out << "  undo       element " << oldId << " is deleted and comes back as element " << IdOf(element)
              << '\n';
}

void Write(const fs::path& path, const Picture& picture, const char* what, const Console& console) {
  WritePng(path.string(), picture);
  console.out << "  picture    " << path.string() << ": " << what << '\n';
}

}  // namespace

int DemoCommand(const std::string& folder, const Console& console) {
  const fs::path home(folder);
  std::error_code error;
  fs::create_directories(home, error);
  if (error) throw UserError("folder " + folder + " cannot be made: " + error.message());
  const fs::path pagePath = home / "boiler.json";
  const fs::path projectPath = home / "boiler.qz7";
  if ((error = RemoveProject(projectPath.string()))) {
    throw UserError("project " + projectPath.string() + " cannot be removed: " + error.message());
  }

  const std::string source(DemoPage());
  WriteTextFile(pagePath.string(), source, "page file " + pagePath.string());
  console.out << "quenzel7 demo\n";
  const fs::path stringsPath = home / "strings.csv";
  WriteTextFile(stringsPath.string(), std::string(DemoStrings()), "strings file " + stringsPath.string());
  const fs::path picturesHome = home / "pictures";
  fs::create_directories(picturesHome, error);
  if (error) throw UserError("folder " + picturesHome.string() + " cannot be made: " + error.message());
  for (const DemoPicture& picture : DemoPictures()) {
    const std::string path = (picturesHome / picture.name).string();
    WriteTextFile(path, std::string(picture.bytes), "picture file " + path);
  }
  console.out << "  page file  " << pagePath.string() << '\n';
  console.out << "  pictures   " << Counted(DemoPictures().size(), "file") << " in " << picturesHome.string()
              << '\n';
  console.out << "  project    ";
  ImportCommand(pagePath.string(), projectPath.string(), console);
  console.out << "  strings    ";
  ImportStringsCommand(projectPath.string(), stringsPath.string(), console);

  const Long number = ReadPageFile(source, "demo page").info.number;
  Picture after;
  {
    ProjectSession project(projectPath.string(), corvane1::ProjectMode::Open);
    after = project.Do([&] {
      const LoadedPage page = LoadPage(project, ChoosePage(project, number), console);
      Write(home / "before.png", RenderPage(page, console), "the page as imported", console);
      project.OpenPage(number);
      ado::Transaction transaction(project.Connection());
      DragElements(project, page, console);
      DeleteAndRestore(project, page, console);
      transaction.Commit();
      return RenderPage(page, console);
    });
  }
  Write(home / "after.png", after, "after the drags, from the objects that were dragged", console);
  const fs::path machinePath = home / "machine.json";
  const std::string machineSource(DemoMachine());
  WriteTextFile(machinePath.string(), machineSource, "page file " + machinePath.string());
  console.out << "  page file  " << machinePath.string() << "\n  project    ";
  ImportCommand(machinePath.string(), projectPath.string(), console);
  const Long machineNumber = ReadPageFile(machineSource, "demo machine").info.number;

  ProjectSession project(projectPath.string(), corvane1::ProjectMode::ReadOnly);
  const Picture reopened = project.Do(
      [&] { return RenderPage(LoadPage(project, ChoosePage(project, number), console), console); });
  Write(home / "reopened.png", reopened, "from the project opened again, in new objects", console);

  const Picture machine = project.Do(
      [&] { return RenderPage(LoadPage(project, ChoosePage(project, machineNumber), console), console); });
  Write(home / "machine.png", machine, "the second page, a screen of variables", console);

  std::vector<SheetSection> samples = DrawingSections();
  samples.insert(samples.end(), TextSections().begin(), TextSections().end());
  Write(home / "sheet.png", PaintSheet(samples, SheetNames::kShown), "all that the graphics interface draws",
        console);
  return CompareDemoPictures(after, reopened, console);
}

int CompareDemoPictures(const Picture& after, const Picture& reopened, const Console& console) {
  if (const std::size_t differing = DifferingPixels(after, reopened); differing > 0) {
    console.out << "  compared   after.png and reopened.png DIFFER in " << differing << " pixels\n";
    return kPicturesDiffer;
  }
  console.out << "  compared   after.png and reopened.png are the same, pixel by pixel ("
              << after.pixels.size() << " pixels)\n";
  return 0;
}

}  // namespace quenzel7::cli
