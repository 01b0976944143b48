#include <array>
#include <cstdlib>
#include <filesystem>

#include <open62541/plugin/accesscontrol_default.h>
#include <open62541/plugin/create_certificate.h>
#include <open62541/server_config_default.h>

#include "online/opc/UaClientTest.h"

namespace tavrin {
namespace {

UA_Logger silence{nullptr, nullptr, nullptr};

UA_String View(std::string_view text) {
  return {text.size(), reinterpret_cast<UA_Byte*>(const_cast<char*>(text.data()))};
}

/// A certificate that vouches for itself, with its key.
class Identity {
 public:
  explicit Identity(const std::string& uri) {
    const std::string address = "URI:" + uri;
    UA_String subject = View("CN=Test");
    std::array<UA_String, 2> names{View("DNS:localhost"), View(address)};
    UA_UInt16 bits = 2048;
    UA_KeyValueMap* parameters = UA_KeyValueMap_new();
    UA_KeyValueMap_setScalar(parameters, UA_QUALIFIEDNAME(0, const_cast<char*>("key-size-bits")), &bits,
                             &UA_TYPES[UA_TYPES_UINT16]);
    status = UA_CreateCertificate(&silence, &subject, 1, names.data(), names.size(), UA_CERTIFICATEFORMAT_DER,
                                  parameters, &key, &certificate);
    UA_KeyValueMap_delete(parameters);
  }
  Identity(const Identity&) = delete;
  Identity& operator=(const Identity&) = delete;
  ~Identity() {
    UA_ByteString_clear(&key);
    UA_ByteString_clear(&certificate);
  }

  static std::string Bytes(const UA_ByteString& bytes) {
    return {reinterpret_cast<const char*>(bytes.data), bytes.length};
  }

  UA_ByteString key = UA_BYTESTRING_NULL;
  UA_ByteString certificate = UA_BYTESTRING_NULL;
  UA_StatusCode status = UA_STATUSCODE_BAD;
};

/// Making keys takes a moment; they are made once for all tests.
struct Identities {
  Identity client{"urn:tavrin"};
  Identity server{"urn:open62541.server.application"};
  Identity stranger{"urn:stranger"};
};
Identities& Known() {
  static Identities identities;
  return identities;
}

class UaSecurityTest : public UaClientTest {
 protected:
  UaSecurityTest()
      : UaClientTest([](UA_ServerConfig& config, std::uint16_t port) {
          const Identity& own = Known().server;
          UA_ServerConfig_setDefaultWithSecurityPolicies(&config, port, &own.certificate, &own.key,
                                                         &Known().client.certificate, 1, nullptr, 0, nullptr, 0);
        }) {
    AddWord("a", 1);
    directory.Write("own.der", Identity::Bytes(Known().client.certificate));
    directory.Write("own.key", Identity::Bytes(Known().client.key));
    directory.Write("server.der", Identity::Bytes(Known().server.certificate));
    directory.Write("stranger.der", Identity::Bytes(Known().stranger.certificate));
  }

  void ConfigureSecurity(const std::string& security, const std::string& trusted = "server.der") {
    Configure(".Security=" + security + "\n.Certificate=" + directory.Path() +
              "own.der\n.PrivateKey=" + directory.Path() + "own.key\n.ServerCertificate=" + directory.Path() + trusted);
  }
};

TEST_F(UaSecurityTest, SignedAndEncryptedConnectionsWork) {
  for (const char* security : {"Sign", "SignAndEncrypt"}) {
    ConfigureSecurity(security);
    control.ControlItems().ClearItems();
    changes.clear();
    Connect("Plant", {"a"});
    EXPECT_TRUE(UntilQuality("a", kGood)) << security;
    control.ControlDisconnect();
  }
}

TEST_F(UaSecurityTest, AServerWithAnotherCertificateIsRefused) {
  ConfigureSecurity("SignAndEncrypt", "stranger.der");
  EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5);
}

TEST_F(UaSecurityTest, SecurityWithoutTheCertificatesIsRefused) {
  ConfigureSecurity("SignAndEncrypt", "missing.der");
  EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5);
  Configure(".Security=Sign");
  EXPECT_EQ(ErrorOf([this] { control.ControlConnect(); }), 5);
}

TEST_F(UaSecurityTest, CertificatesThatAreAwayForATimeDoNotEndAConnectionThatWasMade) {
  ConfigureSecurity("SignAndEncrypt");
  Connect("Plant", {"a"});
  ASSERT_TRUE(UntilQuality("a", kGood));
  std::filesystem::rename(directory.Path() + "own.der", directory.Path() + "away.der");
  server.Stop();
  ASSERT_TRUE(UntilQuality("a", kBadNotConnected));
  server.Start();
  AddWord("a", 2);
  const int before = changes["a"];
  RunFor(1000);
  EXPECT_EQ(changes["a"], before) << "it is tried again and again without a word";
  std::filesystem::rename(directory.Path() + "away.der", directory.Path() + "own.der");
  EXPECT_TRUE(UntilQuality("a", kGood, 9000));
}

TEST_F(UaSecurityTest, UnknownPolicyIsRefused) {
  ConfigureSecurity("SignAndEncrypt");
  const std::string lines = directory.Read("Tavrin.INI");
  directory.Write("Tavrin.INI", lines + "Plant.Policy=Nothing\r\n");
  EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5);
}

/// A server that lets only one user in.
class UaUserTest : public UaClientTest {
 protected:
  UaUserTest()
      : UaClientTest([](UA_ServerConfig& config, std::uint16_t port) {
          UA_ServerConfig_setMinimal(&config, port, nullptr);
          UA_UsernamePasswordLogin login{View("operator"), View("s3cret")};
          config.accessControl.clear(&config.accessControl);
          UA_AccessControl_default(&config, false, nullptr, 1, &login);
          config.allowNonePolicyPassword = true;
        }) {
    AddWord("a", 1);
  }
  ~UaUserTest() override { unsetenv("TAVRIN_OPC_PASSWORD"); }
};

TEST_F(UaUserTest, UserComesFromTheTableAndThePasswordFromTheEnvironment) {
  Configure(".User=operator");
  setenv("TAVRIN_OPC_PASSWORD", "s3cret", 1);
  Connect("Plant", {"a"});
  EXPECT_TRUE(UntilQuality("a", kGood));
}

TEST_F(UaUserTest, AWrongPasswordAndNobodyAreRefused) {
  EXPECT_EQ(ErrorOf([this] { Connect("Plant", {"a"}); }), 5);
  Configure(".User=operator");
  EXPECT_EQ(ErrorOf([this] { control.ControlConnect(); }), 5);
  setenv("TAVRIN_OPC_PASSWORD", "wrong", 1);
  EXPECT_EQ(ErrorOf([this] { control.ControlConnect(); }), 5);
}

}  // namespace
}  // namespace tavrin
