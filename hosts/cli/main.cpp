#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "hosts/cli/commands.h"
#include "hosts/cli/png_writer.h"
#include "hosts/cli/user_error.h"

int main(int argc, char** argv) {
  using namespace quenzel7;

  std::string direction, pageFile, project, projectB, output;
  std::string folder = "quenzel7-demo";
  std::optional<Long> page;
  int scale = 1;

  CLI::App app("Pages of operator panels: page files in and out of projects, pictures of pages.", "quenzel7");
  app.set_version_flag("--version", "quenzel7 " QUENZEL7_VERSION);
  app.require_subcommand(1);
  const auto takeProject = [&project](CLI::App* command) {
    command->add_option("PROJECT", project, "The project file")->required();
  };
  const auto takePage = [&page](CLI::App* command,
                                const char* help =
                                    "The number of the page; not needed when the project has only one") {
    command->add_option("--page", page, help)->check(CLI::Range(Long{0}, std::numeric_limits<Long>::max()));
  };

  CLI::App* import = app.add_subcommand("import", "Bring a page file into a project");
  import->add_option("PAGE.json", pageFile, "The page file")->required();
  import->add_option("PROJECT", project, "The project file; it is made when it is not there")->required();

  std::vector<std::string> pictures;
  import
      ->add_option("--picture", pictures,
                   "A file for a picture whose own file is not there; again for the next such picture")
      ->allow_extra_args(false);

  CLI::App* exportPage = app.add_subcommand("export", "Write a page of a project as a page file");
  takeProject(exportPage);
  takePage(exportPage);
  exportPage->add_option("-o,--output", output, "The file to write, in place of standard output");

  CLI::App* render = app.add_subcommand("render", "Paint a page of a project");
  takeProject(render);
  takePage(render);
  render->add_option("-o,--output", output, "The PNG file to write")->required();
  render->add_option("--scale", scale, "Paint every pixel as a square of so many pixels")
      ->check(CLI::Range(1, cli::kLargestScale));

  CLI::App* list = app.add_subcommand("list", "Tell the pages and elements of a project");
  takeProject(list);

  CLI::App* check =
      app.add_subcommand("check", "Tell what is wrong in a project; exit status 1 when something is");
  takeProject(check);

  CLI::App* report = app.add_subcommand(
      "report", "Write what the elements of a project tell of themselves; exit status 1 when one cannot");
  takeProject(report);
  takePage(report, "Only the page of this number");
  report->add_option("-o,--output", output, "The file to write, in place of standard output");

  CLI::App* diff =
      app.add_subcommand("diff", "Tell how two projects or page files differ; exit status 1 when they do");
  diff->add_option("A", project, "A project or a page file")->required();
  diff->add_option("B", projectB, "Another one")->required();
  diff->add_option("-o,--output", output, "A PNG file to paint the difference of a page into");
  takePage(diff, "Compare only the page of this number");

  CLI::App* strings =
      app.add_subcommand("strings", "Bring texts into a project's string library, or out of it");
  takeProject(strings);
  strings->add_option("DIRECTION", direction, "import or export")
      ->required()
      ->check(CLI::IsMember({"import", "export"}));
  strings->add_option("FILE.csv", output, "The file with the texts")->required();

  std::vector<std::string> changes;
  CLI::App* settings = app.add_subcommand("settings", "Tell the settings of a project, and change them");
  settings->add_option("PROJECT", project, "The project file; it is made when a setting is given")
      ->required();
  settings->add_option("SECTION/KEY=TEXT", changes,
                       "Settings to make, such as 7000/1=1251 for a Cyrillic code page; an empty text takes "
                       "one away");

  cli::ImageAddition addition;
  std::string crc;
  bool original = false;
  CLI::App* image = app.add_subcommand("image", "Bring pictures into a project, tell them, write them out");
  takeProject(image);
  image->require_subcommand(1);
  CLI::App* addImages = image->add_subcommand("add", "Add picture files as pictures behind a page");
  addImages->add_option("FILE", addition.files, "A bmp, gif, jpg, ico or cur file")->required();
  addImages->add_option("--size", addition.size,
                        "The size on the panel, WIDTHxHEIGHT; else that of the file");
  addImages->add_option("--bits", addition.bits, "16 for pixels of two bytes")->check(CLI::IsMember({8, 16}));
  addImages
      ->add_option("--page", addition.page, "The page that they lie behind; else the only page, or page 0")
      ->check(CLI::Range(Long{0}, std::numeric_limits<Long>::max()));
  addImages
      ->add_option("--type", addition.type, "The type of the first one on its page; else the lowest free one")
      ->check(CLI::Range(Long{0}, std::numeric_limits<Long>::max()));
  addImages->add_flag("--transparent", addition.isTransparent,
                      "The colour of the first pixel lets the page show");
  CLI::App* listImages = image->add_subcommand("list", "Tell the pictures of the project");
  CLI::App* extractImage = image->add_subcommand("extract", "Write a picture as a PNG file");
  extractImage->add_option("CRC", crc, "The picture's CRC, as list tells it")->required();
  extractImage->add_option("-o,--output", output, "The PNG file to write")->required();
  extractImage->add_flag("--original", original, "The pixels at the picture's own size");

  std::string typeName;
  bool asJson = false, asReference = false;
  CLI::App* classes = app.add_subcommand("classes", "Tell the classes that hosts meet, and their members");
  CLI::Option* takeName =
      classes->add_option("NAME", typeName, "A class, an interface or an enumeration; else all classes");
  CLI::Option* json = classes->add_flag("--json", asJson, "The type information, as JSON");
  classes->add_flag("--reference", asReference, "All of it as a page of Markdown")
      ->excludes(takeName)
      ->excludes(json);

  CLI::App* demo = app.add_subcommand("demo", "Build, paint, change and open again a project");
  demo->add_option("-o,--output", folder, "The folder to write to")->capture_default_str();

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    std::string wrong = error.what();
    const auto isFirst = [&](const CLI::App* command) { return command->get_name() == argv[1]; };
    if (argc > 1 && argv[1][0] != '-' && app.get_subcommands(isFirst).empty()) {
      wrong = "there is no command " + cli::Quoted(argv[1]);
    }
    std::cerr << cli::OneLine("quenzel7: " + wrong + "; quenzel7 --help tells more") << std::endl;
    return cli::kFailed;
  }

  const cli::Console console{std::cout, std::cerr, isatty(STDERR_FILENO) == 1};
  return cli::RunCommand(console, [&] {
    if (*import) return cli::ImportCommand(pageFile, project, console, pictures);
    if (*exportPage) return cli::ExportCommand(project, page, output, console);
    if (*render) return cli::RenderCommand(project, page, output, scale, console);
    if (*list) return cli::ListCommand(project, console);
    if (*check) return cli::CheckCommand(project, console);
    if (*report) return cli::ReportCommand(project, page, output, console);
    if (*diff) return cli::DiffCommand(project, projectB, page, output, console);
    if (*strings && direction == "import") return cli::ImportStringsCommand(project, output, console);
    if (*addImages) return cli::AddImagesCommand(project, addition, console);
    if (*listImages) return cli::ListImagesCommand(project, console);
    if (*extractImage) return cli::ExtractImageCommand(project, crc, original, output, console);
    if (*settings) return cli::SettingsCommand(project, changes, console);
    if (*classes) {
      const auto form = asJson        ? cli::ClassesForm::AsJson
                        : asReference ? cli::ClassesForm::AsReference
                                      : cli::ClassesForm::AsText;
      return cli::ClassesCommand(typeName, form, console);
    }
    if (*strings) return cli::ExportStringsCommand(project, output);
    return cli::DemoCommand(folder, console);
  });
}
