#pragma once

#include <string>
#include <vector>

#include "hosts/cli/text_file.h"
#include "platform/automation/types.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/support/picture_samples.h"

namespace quenzel7::cli::test {

/// A project, and picture files of two by two pixels beside it.
class PictureTest : public CliProjectTest {
 protected:
  /// Red and white over black and blue, as colours of the panel.
  static constexpr Byte kRed = 0, kWhite = 8, kBlack = 9, kBlue = 96;

  void SetUp() override {
    CliProjectTest::SetUp();
    WriteBmp("pump.bmp", {{0xE00000, 0xFFFFFF}, {0x000000, 0x0066E8}});
    WriteBmp("fan.bmp", {{0xFFFFFF, 0xFFFFFF}, {0x000000, 0x000000}});
  }

  /// A bmp file of these rows of colours, 0xRRGGBB, from the top.
  void WriteBmp(const std::string& name, const std::vector<std::vector<std::uint32_t>>& rows) {
    quenzel7::test::DibSample sample;
    sample.width = static_cast<std::int32_t>(rows.front().size());
    sample.height = static_cast<std::int32_t>(rows.size());
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
      const std::size_t start = sample.pixels.size();
      for (const std::uint32_t color : *row) {
        for (const unsigned shift : {0u, 8u, 16u}) sample.pixels.push_back(static_cast<Byte>(color >> shift));
      }
      while ((sample.pixels.size() - start) % 4 != 0) sample.pixels.push_back(0);
    }
    const std::vector<Byte> bytes = quenzel7::test::BmpBytes(sample);
    WriteTextFile(File(name), std::string(bytes.begin(), bytes.end()), "file");
  }

  /// A canonical page file of page 1 with these elements, each from its class on, without the last line end.
  static std::string PageOf(const std::vector<std::string>& elements) {
    std::string text =
        "{\n  \"page\": 1,\n  \"panel\": {\n    \"type\": 1,\n    \"width\": 8,\n    \"height\": 8\n  },\n"
        "  \"elements\": [";
    for (const std::string& element : elements) {
      text += std::string(&element == elements.data() ? "" : ",") + "\n    {\n      \"class\": " + element +
              "\n    }";
    }
    return text + "\n  ]\n}\n";
  }
  /// A bitmap or another element at a place, with its further properties, a line each.
  static std::string Element(const std::string& name, Long xs, Long ys, Long dx, Long dy,
                             const std::vector<std::string>& more = {}) {
    std::string text = "\"cls" + name + "\"" + ElementText(xs, ys, dx, dy);
    for (const std::string& line : more) text += ",\n      " + line;
    return text;
  }
  static std::string Bitmap(Long xs, Long ys, Long dx, Long dy, const std::vector<std::string>& more = {}) {
    return Element("Bitmap", xs, ys, dx, dy, more);
  }
  ImportResult ImportElements(const std::vector<std::string>& elements) {
    return Import(PageOf(elements), File(""));
  }
  /// The only page without what the import kept of its file.
  std::string Canonical() {
    const LoadedPage page = LoadAsFiled();
    return CanonicalPageText(page.info, page.elements);
  }
};

}  // namespace quenzel7::cli::test
