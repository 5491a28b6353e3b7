/// Random work on the pictures of a project file, told beside it to a model that knows the rules and nothing
/// of databases: after every step both hold the same rows and links.
#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "images/image_links.h"
#include "images/image_list.h"
#include "images/page_image.h"
#include "tests/support/image_fixture.h"

namespace quenzel7 {
namespace {

using Lines = std::vector<std::string>;

std::string Line(std::initializer_list<Long> numbers) {
  std::string line;
  for (const Long number : numbers) line += (line.empty() ? "" : " ") + std::to_string(number);
  return line;
}

/// The store by its rules.
class StoreModel {
 public:
  enum class Owner { Element, Page };

  /// A row of the panel itself.
  void PutSystemImage(Long index, Long crc, Long status) {
    rows_[index] = {crc, status, 3, 2};
    next_ = index + 1;
  }
  /// The index of the next new row; the database never gives one twice.
  Long Next() const { return next_; }

  /// A picture goes into the row of its CRC, one in use first, else into the lowest free one, else into a new
  /// one; that of a page never into a free row of its CRC.
  void Write(Long crc, Long dx, Long dy, Owner owner) {
    const auto has = [&](Long status) {
      return [crc, status](const Row& row) { return row.crc == crc && row.status == status; };
    };
    const auto first = [&](const std::function<bool(const Row&)>& wanted) {
      for (auto& [index, row] : rows_) {
        if (wanted(row)) return &row;
      }
      return static_cast<Row*>(nullptr);
    };
    Row* row = first(has(3));
    Row* const freed = first(has(2));
    if (!row && freed && owner == Owner::Element) row = freed;
    if (!row && !freed) row = first([](const Row& r) { return r.status == 2; });
    if (!row) row = &rows_[next_++];
    *row = {crc, 3, dx, dy};
  }

  void Link(Long element, Long index, Long crc) { elements_[{element, index}] = crc; }
  void LinkPage(Long page, Long type, Long crc) { pages_[{page, type}] = crc; }

  void FreeOneOrphan() {
    for (auto& [index, row] : rows_) {
      if (row.status != 3 || IsLinked(row.crc)) continue;
      row.Free();
      return;
    }
  }
  void Collect() {
    for (auto& [index, row] : rows_) {
      if (row.status == 3 && !IsLinked(row.crc)) row.Free();
    }
    Trim();
  }
  void Release(Long element, const std::function<bool(Long index, Long crc)>& which,
               std::vector<Long> looked = {}) {
    for (auto link = elements_.begin(); link != elements_.end();) {
      const bool goes = link->first.first == element && which(link->first.second, link->second);
      if (goes) looked.push_back(link->second);
      link = goes ? elements_.erase(link) : std::next(link);
    }
    for (auto& [index, row] : rows_) {
      const bool wasLooked = std::find(looked.begin(), looked.end(), row.crc) != looked.end();
      if (wasLooked && row.status == 3 && !IsLinked(row.crc)) row.Free();
    }
    Trim();
  }
  void TrimLinks(Long element, Long count) {
    if (count < 1) return;
    Long place = 0;
    for (auto link = elements_.begin(); link != elements_.end();) {
      const bool goes = link->first.first == element && ++place > count;
      link = goes ? elements_.erase(link) : std::next(link);
    }
  }

  /// The link of an element of that index; none is -1.
  Long LinkOf(Long element, Long index) const {
    const auto link = elements_.find({element, index});
    return link == elements_.end() ? -1 : link->second;
  }
  std::set<Long> PicturesOf(Long element) const {
    std::set<Long> crcs;
    for (const auto& [place, crc] : elements_) {
      if (place.first == element) crcs.insert(crc);
    }
    return crcs;
  }

  Lines Images() const {
    Lines lines;
    for (const auto& [index, row] : rows_)
      lines.push_back(Line({index, row.crc, row.status, row.dx, row.dy}));
    return lines;
  }
  Lines Links() const { return Shown(elements_); }
  Lines PageLinks() const { return Shown(pages_); }

 private:
  struct Row {
    Long crc = 0, status = 0, dx = 0, dy = 0;
    void Free() { status = 2, dx = dy = 0; }
  };
  using LinkMap = std::map<std::pair<Long, Long>, Long>;

  static Lines Shown(const LinkMap& links) {
    Lines lines;
    for (const auto& [place, crc] : links) lines.push_back(Line({place.first, place.second, 0, crc}));
    return lines;
  }
  static bool Has(const LinkMap& links, Long crc) {
    return std::any_of(links.begin(), links.end(), [&](const auto& link) { return link.second == crc; });
  }
  bool IsLinked(Long crc) const { return Has(elements_, crc) || Has(pages_, crc); }
  void Trim() {
    while (!rows_.empty() && rows_.rbegin()->second.status == 2) rows_.erase(std::prev(rows_.end()));
  }

  std::map<Long, Row> rows_;
  LinkMap elements_, pages_;
  Long next_ = 1;
};

class ImageStoreModel : public test::ImageProjectTest {
 protected:
  using Pictures = std::vector<std::shared_ptr<clsVarImageElement>>;

  Long Below(Long end) { return static_cast<Long>(random_() % static_cast<unsigned>(end)); }
  /// Few enough that they meet.
  Long AnyCrc() { return 10 + Below(6); }
  Long AnyElement() { return 1 + Below(3); }

  /// A picture of that CRC at one of a few sizes.
  test::LibraryPicture AnyPicture(Long crc) {
    test::LibraryPicture picture = Picture(crc);
    picture.dx = 1 + Below(3);
    picture.dy = 1 + Below(2);
    picture.data = test::PixelsOf(picture.dx, picture.dy, static_cast<Byte>(crc));
    return picture;
  }

  std::string AddBitmap() {
    test::LibraryPicture picture = AnyPicture(AnyCrc());
    const Long element = AnyElement(), index = Below(4);
    AddBitmapImageToProject(ToSave(picture), element, index, 0);
    model_.Write(picture.crc, picture.dx, picture.dy, StoreModel::Owner::Element);
    model_.Link(element, index, picture.crc);
    model_.FreeOneOrphan();
    return "bitmap " + Line({element, index, picture.crc});
  }

  void ModelListPicture(Long element, Long index, Long crc, Long dx, Long dy) {
    model_.Write(crc, dx, dy, StoreModel::Owner::Element);
    model_.Link(element, index, crc);
    model_.Collect();
  }
  std::string AddListPicture() {
    const test::LibraryPicture picture = AnyPicture(AnyCrc());
    const Long element = AnyElement(), index = Below(4);
    RecordOf(picture)->SaveToDB(element, index, picture.dx, picture.dy);
    ModelListPicture(element, index, picture.crc, picture.dx, picture.dy);
    return "list picture " + Line({element, index, picture.crc});
  }

  std::string ReleaseAll() {
    const Long element = AnyElement();
    ReleaseElementImages(element);
    model_.Release(element, [](Long, Long) { return true; });
    return "release " + Line({element});
  }
  std::string ReleaseOne() {
    const Long element = AnyElement(), index = Below(4);
    // Mostly a picture that is there.
    const Long crc = Below(4) == 0 ? AnyCrc() : model_.LinkOf(element, index);
    ReleaseElementImage(crc, element, index);
    model_.Release(element, [&](Long place, Long picture) { return place == index && picture == crc; },
                   {crc});
    return "release one " + Line({element, index, crc});
  }

  std::string SavePage() {
    const test::LibraryPicture picture = AnyPicture(AnyCrc());
    const Long page = 1 + Below(2), type = Below(2);
    RecordOf<clsPageImage>(picture)->SaveToDB(page, type, picture.dx, picture.dy);
    model_.Write(picture.crc, picture.dx, picture.dy, StoreModel::Owner::Page);
    model_.LinkPage(page, type, picture.crc);
    return "page " + Line({page, type, picture.crc});
  }

  void SaveList(Long element, const Pictures& pictures, Long dx, Long dy) {
    auto list = std::make_shared<automation::Collection>();
    for (const auto& picture : pictures) list->Add(automation::Variant(picture));
    const bool fromZero = Below(2) == 0;
    SaveImageList(element, fromZero ? eVT_BinaryImage : eVT_ListImage, list, dx, dy);
    model_.TrimLinks(element, static_cast<Long>(pictures.size()));
    Long index = fromZero ? 0 : 1;
    for (const auto& picture : pictures) {
      if (picture->CRC8bpp() != -1) ModelListPicture(element, index, picture->CRC8bpp(), dx, dy);
      ++index;
    }
    model_.Collect();
  }
  Pictures AnyPictures(Long dx, Long dy) {
    Pictures pictures;
    for (Long count = Below(4); count > 0; --count) {
      test::LibraryPicture picture = Picture(Below(4) == 0 ? -1 : AnyCrc());
      picture.data = test::PixelsOf(dx, dy, 1);
      pictures.push_back(RecordOf(picture));
    }
    return pictures;
  }
  std::string SaveAnyList() {
    const Long element = AnyElement(), dx = 1 + Below(3), dy = 1 + Below(2);
    const Pictures pictures = AnyPictures(dx, dy);
    SaveList(element, pictures, dx, dy);
    return "list of " + Line({static_cast<Long>(pictures.size())}) + " of " + Line({element});
  }
  /// The pictures that the element has become another one, at another size.
  std::string Resize() {
    const Long element = AnyElement(), dx = 1 + Below(3), dy = 1 + Below(2);
    library_->crc = AnyCrc();
    library_->pixels = test::PixelsOf(dx, dy, 2);
    const Pictures pictures = AnyPictures(dx, dy);
    std::vector<Long> expected, resized;
    auto list = std::make_shared<automation::Collection>();
    const std::set<Long> had = model_.PicturesOf(element);
    for (const auto& picture : pictures) {
      list->Add(automation::Variant(picture));
      const Long crc = picture->CRC8bpp();
      expected.push_back(had.count(crc) > 0 ? library_->crc : crc);
    }
    ResizeElementImages(dx, dy, list, element);
    for (const auto& picture : pictures) resized.push_back(picture->CRC8bpp());
    EXPECT_EQ(resized, expected);
    SaveList(element, pictures, dx, dy);
    return "resize " + Line({element, library_->crc});
  }

  void Run(unsigned seed) {
    random_.seed(seed);
    const Long first = model_.Next();
    model_ = {};
    EmptyTables();
    // Pictures of the panel itself, which elements have too.
    for (Long status = 0; status <= 1; ++status) {
      PutImage(first + status, 10 + status, status);
      model_.PutSystemImage(first + status, 10 + status, status);
    }
    using Step = std::string (ImageStoreModel::*)();
    static constexpr Step kSteps[] = {
        &ImageStoreModel::AddBitmap,      &ImageStoreModel::AddBitmap,   &ImageStoreModel::AddBitmap,
        &ImageStoreModel::AddListPicture, &ImageStoreModel::SavePage,    &ImageStoreModel::ReleaseAll,
        &ImageStoreModel::ReleaseOne,     &ImageStoreModel::SaveAnyList, &ImageStoreModel::Resize};
    std::string trail = "seed " + std::to_string(seed);
    for (int step = 0; step < 40; ++step) {
      trail += "; " + (this->*kSteps[Below(std::size(kSteps))])();
      const Lines rows =
          Rows("SELECT * FROM ProjectImages ORDER BY [Index]", {"Index", "CRC", "RecordStatus", "Dx", "Dy"});
      ASSERT_EQ(rows, model_.Images()) << trail;
      ASSERT_EQ(Links(), model_.Links()) << trail;
      ASSERT_EQ(PageLinks(), model_.PageLinks()) << trail;
    }
    EXPECT_TRUE(Errors().empty());
    TakeLog();
  }

  const std::shared_ptr<test::NotingImageLibrary> library_ = std::make_shared<test::NotingImageLibrary>();
  StoreModel model_;
  std::mt19937 random_;
};

TEST_F(ImageStoreModel, AgreesAfterEveryStep) {
  LibraryState::Current().ImageLibrary = library_;
  // In memory as far as it goes: nothing is to survive a crash here.
  Connection().Execute("PRAGMA synchronous=OFF");
  for (unsigned seed = 1; seed <= 40 && !HasFatalFailure(); ++seed) Run(seed);
}

}  // namespace
}  // namespace quenzel7
