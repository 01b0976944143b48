#include "online/opc/ServerTable.h"

#include <gtest/gtest.h>

#include "platform/posix/PosixFiles.h"
#include "platform/profile/ProfiledFiles.h"
#include "support/TemporaryDirectory.h"

namespace tavrin {
namespace {

class ServerTableTest : public testing::Test {
 protected:
  std::optional<ServerEntry> Find(const std::string& lines, const std::string& progID) {
    directory.Write("Tavrin.INI", "[Servers]\r\n" + lines);
    return FindServer(files, directory.Path() + "Tavrin.INI", progID);
  }

  TemporaryDirectory directory;
  PosixFiles systemFiles;
  ProfiledFiles files{systemFiles};
};

TEST_F(ServerTableTest, OwnServersAreKnownWithoutAnEntry) {
  for (const char* progID : {"Zelkar.OPCServer.1", "Qorvane.OPCServer.1"}) {
    const auto server = Find("", progID);
    ASSERT_TRUE(server) << progID;
    EXPECT_EQ(server->endpoint, "opc.tcp://localhost:4840");
    EXPECT_EQ(server->nodes.nameSpace, 2);
    EXPECT_EQ(server->nodes.TextOf("Device/Tag"), "Device/Tag");
    EXPECT_EQ(server->security, OpcSecurity::None);
    EXPECT_EQ(server->user, "");
  }
}

TEST_F(ServerTableTest, OthersNeedTheirEndpoint) {
  EXPECT_FALSE(Find("", "Other.Server.1"));
  EXPECT_FALSE(Find("Other.Server.1.NodeId=ns=3;s=*\r\n", "Other.Server.1"));
  const auto server = Find("Other.Server.1=opc.tcp://plant:4841\r\n", "Other.Server.1");
  ASSERT_TRUE(server);
  EXPECT_EQ(server->endpoint, "opc.tcp://plant:4841");
}

TEST_F(ServerTableTest, AllKeysOfAServerAreRead) {
  const auto server = Find(
      "A=opc.tcp://"
      "plant:1\r\nA.NodeId=ns=5;s=Line.*.Value\r\nA.Security=signandencrypt\r\nA.Policy=Aes128_Sha256_RsaOaep\r\n"
      "A.Certificate=own.der\r\nA.PrivateKey=own.key\r\nA.ServerCertificate=server.der\r\nA.User=operator\r\n",
      "A");
  ASSERT_TRUE(server);
  EXPECT_EQ(server->nodes.nameSpace, 5);
  EXPECT_EQ(server->nodes.TextOf("D/T"), "Line.D/T.Value");
  EXPECT_EQ(server->security, OpcSecurity::SignAndEncrypt);
  EXPECT_EQ(server->policy, "Aes128_Sha256_RsaOaep");
  EXPECT_EQ(server->certificate, "own.der");
  EXPECT_EQ(server->privateKey, "own.key");
  EXPECT_EQ(server->serverCertificate, "server.der");
  EXPECT_EQ(server->user, "operator");
}

TEST_F(ServerTableTest, MisspeltSecurityIsNoServer) {
  EXPECT_FALSE(Find("A=opc.tcp://plant:1\r\nA.Security=SignEncrypt\r\n", "A"));
  EXPECT_FALSE(Find("A=opc.tcp://plant:1\r\nA.NodeId=name\r\n", "A"));
}

TEST(NodePatternTest, ItemStandsForTheStarOrBehindTheText) {
  EXPECT_EQ(ReadNodePattern("ns=2;s=")->TextOf("a"), "a");
  EXPECT_EQ(ReadNodePattern("ns=2;s=x;y=")->TextOf("a"), "x;y=a");
  EXPECT_EQ(ReadNodePattern("ns=2;s=*/*")->TextOf("a*"), "a*/*");
  EXPECT_EQ(ReadNodePattern("ns=65535;s=*")->nameSpace, 65535);
}

TEST(NodePatternTest, OtherFormsAreNone) {
  for (const char* pattern : {"", "ns=", "ns=2", "ns=2;i=5", "ns=65536;s=", "ns=-1;s=", "ns=a;s=", "s=*", "NS=2;s=*"}) {
    EXPECT_FALSE(ReadNodePattern(pattern)) << pattern;
  }
}

TEST(NodePatternTest, NamesAreSentInUtf8) {
  EXPECT_EQ(ReadNodePattern("ns=2;s=*")->TextOf("Ger\xE4t/\x80"), "Ger\xC3\xA4t/\xE2\x82\xAC");
}

}  // namespace
}  // namespace tavrin
