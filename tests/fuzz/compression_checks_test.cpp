#include "fuzz/compression_checks.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/compression/zstd_compressor.h"
#include "tests/support/stored_inputs.h"

namespace quenzel7::fuzz {
namespace {

using compression::ZstdCompressor;
using Bytes = std::vector<Byte>;

TEST(CheckCompression, StoredInputsKeepEveryPromise) {
  ZstdCompressor compressor(kLargestFuzzedData);
  const auto inputs = test::StoredInputs("compression");
  EXPECT_GE(inputs.size(), 10u);
  for (const auto& input : inputs)
    EXPECT_EQ(CheckCompression(compressor, test::Contents(input)), "") << input.filename();
}

/// Does what the embedded compressor does, but for what a test makes wrong.
class FaultyCompressor final : public compression::Compressor {
 public:
  Long Compress(const Bytes& data, Bytes& block) override {
    made.push_back(data);
    if (compressStatus != 0) return compressStatus;
    return inner_.Compress(data, block);
  }
  Long UnCompress(const Bytes& block, Bytes& data) override {
    read.push_back(block);
    const Long status = inner_.UnCompress(block, data);
    if (status != 0 && spoilsRefused) data.clear();
    if (status == 0 && resizesTo != 0) data.resize(resizesTo);
    if (status == 0 && !data.empty() && spoilsDone) data.back() ^= 1;
    return status == 0 && !data.empty() ? doneStatus : status != 0 ? status + shift : 0;
  }

  Long compressStatus = 0, doneStatus = 0, shift = 0;
  bool spoilsRefused = false, spoilsDone = false;
  std::size_t resizesTo = 0;
  std::vector<Bytes> made, read;

 private:
  ZstdCompressor inner_{kLargestFuzzedData};
};

class FaultsOfCompressors : public ::testing::Test {
 protected:
  std::string Check(const Bytes& bytes) { return CheckCompression(compressor_, bytes); }
  /// A block of three bytes.
  Bytes Block() {
    Bytes block;
    ZstdCompressor().Compress({1, 2, 3}, block);
    return block;
  }

  FaultyCompressor compressor_;
};

TEST_F(FaultsOfCompressors, AreNotFoundWhereThereAreNone) {
  EXPECT_EQ(Check({}), "");
  EXPECT_EQ(Check({1, 2}), "");
  EXPECT_EQ(Check(Block()), "");
}

TEST_F(FaultsOfCompressors, AreLookedForInEachWayToTakeTheBytes) {
  EXPECT_EQ(Check({1, 2}), "");
  ASSERT_EQ(compressor_.read.size(), 3u);
  EXPECT_EQ(compressor_.read[0], (Bytes{1, 2}));
  EXPECT_EQ(compressor_.read[1], (Bytes{'Q', 'z', '7', 1, 1, 2}));
  EXPECT_EQ(compressor_.made, (std::vector<Bytes>{{1, 2}}));
  // What comes out of a block is made into one again.
  compressor_.made.clear();
  EXPECT_EQ(Check(Block()), "");
  EXPECT_EQ(compressor_.made, (std::vector<Bytes>{{1, 2, 3}, Block()}));
}

TEST_F(FaultsOfCompressors, AreDataThatBecomeNoBlock) {
  compressor_.compressStatus = 6;
  EXPECT_EQ(Check({1}), "data within the limit become a block");
}

TEST_F(FaultsOfCompressors, AreBlocksThatCannotBeRead) {
  compressor_.doneStatus = 3;
  EXPECT_EQ(Check({1}), "a block that was made can be read");
}

TEST_F(FaultsOfCompressors, AreBlocksThatGiveSomethingElse) {
  compressor_.spoilsDone = true;
  EXPECT_EQ(Check({1}), "a block gives what it was made of");
}

TEST_F(FaultsOfCompressors, AreStatusesThatNobodyKnows) {
  const char* const complaint = "any bytes are a block, or one of the known things is wrong with them";
  // The bytes are no block (1), and no frame (4) behind a header.
  compressor_.shift = 1;
  EXPECT_EQ(Check({1}), "");
  compressor_.shift = 2;
  EXPECT_EQ(Check({1}), complaint);
  compressor_.shift = -2;
  EXPECT_EQ(Check({1}), complaint);
}

TEST_F(FaultsOfCompressors, AreRefusedBlocksThatGiveSomething) {
  compressor_.spoilsRefused = true;
  EXPECT_EQ(Check({1}), "a refused block gives nothing");
}

TEST_F(FaultsOfCompressors, AreBlocksThatGiveMoreThanTheLimit) {
  compressor_.resizesTo = kLargestFuzzedData;
  EXPECT_EQ(Check(Block()), "a block gives what it was made of");
  compressor_.resizesTo = kLargestFuzzedData + 1;
  EXPECT_EQ(Check(Block()), "a block gives no more than the limit");
}

}  // namespace
}  // namespace quenzel7::fuzz
