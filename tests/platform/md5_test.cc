#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <zelk/md5.h>

namespace {

using Zelk::MD5;

struct KnownDigest {
  std::string input;
  const char* digest;
};

// The first seven are the test suite that the algorithm was published with.
const KnownDigest kKnownDigests[] = {
    {"", "d41d8cd98f00b204e9800998ecf8427e"},
    {"a", "0cc175b9c0f1b6a831c399e269772661"},
    {"abc", "900150983cd24fb0d6963f7d28e17f72"},
    {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
    {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
    {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
     "d174ab98d277d9f5a5611c2c9f419d9f"},
    {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
     "57edf4a22be3c955ac49da2e2107b67a"},
    {std::string("a\0b", 3), "70350f6027bce3713f6b76473084309b"},
};

TEST(MD5, DigestsItsInput) {
  for (const KnownDigest& known : kKnownDigests) {
    MD5 digest;
    digest.Update(known.input);
    EXPECT_EQ(digest.hexdigest(), known.digest) << known.input;
  }
}

TEST(MD5, DigestsAStreamToItsEnd) {
  for (const KnownDigest& known : kKnownDigests) {
    std::istringstream in(known.input);
    EXPECT_EQ(MD5::hexdigest(in), known.digest) << known.input;
    EXPECT_TRUE(in.eof()) << known.input;
  }
}

TEST(MD5, DigestsAStreamFromItsCurrentPosition) {
  std::istringstream in("xyzabc");
  in.seekg(3);
  EXPECT_EQ(MD5::hexdigest(in), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(MD5, DigestsAStreamAgainAfterItWasRewound) {
  std::istringstream in("abc");
  MD5::hexdigest(in);
  in.clear();
  in.seekg(0);
  EXPECT_EQ(MD5::hexdigest(in), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(MD5, DigestsAnUnreadableStreamAsEmpty) {
  std::istringstream in("abc");
  in.setstate(std::ios::failbit);
  EXPECT_EQ(MD5::hexdigest(in), "d41d8cd98f00b204e9800998ecf8427e");
}

TEST(MD5, DigestsStreamsOfAnySizeLikeStrings) {
  for (const std::size_t size : {65535U, 65536U, 65537U, 131072U, 200000U}) {
    const std::string bytes(size, 'x');
    std::istringstream in(bytes);
    MD5 digest;
    digest.Update(bytes);
    EXPECT_EQ(MD5::hexdigest(in), digest.hexdigest()) << size;
  }
}

TEST(MD5, DigestsPiecesLikeTheWhole) {
  MD5 digest;
  digest.Update("a");
  digest.Update("");
  digest.Update("bcd", 2);
  EXPECT_EQ(digest.hexdigest(), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(MD5, CanBeUpdatedAfterItsDigestWasRead) {
  MD5 digest;
  digest.Update("a");
  EXPECT_EQ(digest.hexdigest(), "0cc175b9c0f1b6a831c399e269772661");
  EXPECT_EQ(digest.hexdigest(), "0cc175b9c0f1b6a831c399e269772661");
  digest.Update("bc");
  EXPECT_EQ(digest.hexdigest(), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(MD5, KeepsItsStateWhenMoved) {
  MD5 digest;
  digest.Update("ab");
  MD5 moved = std::move(digest);
  moved.Update("c");
  EXPECT_EQ(moved.hexdigest(), "900150983cd24fb0d6963f7d28e17f72");
  MD5 assigned;
  assigned.Update("foo");
  assigned = std::move(moved);
  EXPECT_EQ(assigned.hexdigest(), "900150983cd24fb0d6963f7d28e17f72");
}

}  // namespace
