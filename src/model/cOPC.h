#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/DirtySettings.h"
#include "model/ProjectSettings.h"
#include "model/cNetworks.h"

namespace tavrin {

class Grid;
class Tree;

/// Root of a project: the server's general settings, the networks, and the answers to questions that span the tree.
/// Exactly one is live at a time, reached through modMain::globals.gOPC. Making one renews both warning lists.
/// A setter refuses a bad value by a message box and leaves the field; a stored value marks the root dirty. Loaded
/// values go past the setters.
class cOPC : public DirtySettings<ProjectSettings> {
 public:
  cOPC();

  /// Project file without directory. The present name in another case is ignored; a name in use is refused.
  [[nodiscard]] const std::string& szFileName() const { return settings_.szFileName; }
  void szFileName(std::string_view value);
  /// Directory of the project and szFileName.
  [[nodiscard]] std::string szFullName() const;
  [[nodiscard]] std::int32_t nLogFileSize() const { return settings_.nLogFileSize; }
  void nLogFileSize(std::int32_t value);
  [[nodiscard]] std::int32_t nCaseSensitive() const { return settings_.nCaseSensitive; }
  void nCaseSensitive(std::int32_t value);
  /// Anything that occurs in szACCEPTEDSEPARATORS, so also several of its characters in their order, or nothing.
  [[nodiscard]] const std::string& szUsedSeparator() const { return settings_.szUsedSeparator; }
  void szUsedSeparator(std::string_view value);
  [[nodiscard]] const std::string& szACCEPTEDSEPARATORS() const { return settings_.szACCEPTEDSEPARATORS; }
  void szACCEPTEDSEPARATORS(std::string_view value);
  [[nodiscard]] std::int32_t nSaveTagsUppercase() const { return settings_.nSaveTagsUppercase; }
  void nSaveTagsUppercase(std::int32_t value);

  [[nodiscard]] cNetworks& Networks() { return networks_; }
  [[nodiscard]] const cNetworks& Networks() const { return networks_; }

  /// True when no device of the open project has the name, in any case. The object that asks is not left out, here
  /// and in the next two.
  [[nodiscard]] bool CheckDeviceNameUnique(std::string_view name) const;
  [[nodiscard]] bool CheckNetworkNameUnique(std::string_view name) const;
  /// True when neither the open project nor a network, device or tag list of it has the file name, in any case.
  [[nodiscard]] bool CheckFilenameUnique(std::string_view name) const;
  /// True when no MPI network of this object has the port.
  [[nodiscard]] bool CheckMPICOMPortUnique(std::int32_t port) const;
  /// The highest port of the MPI networks plus 1; 1 when there is none.
  [[nodiscard]] std::int32_t GetNewMPICOMPort() const;

  /// Reads the project file and everything below it. Bad values become read warnings and do not stop the load; a number
  /// beyond 32 bits ends it with a message. Only appends: meant for a fresh object. `bOK` false: the file is missing,
  /// or a key of General, a Protocol or a Configuration is missing or bad.
  void Refresh(bool& bOK);
  /// Writes the project file anew. `bKeepDirty` true leaves the mark. `bOK` false only after an error.
  void Update(bool bKeepDirty, bool& bOK);
  /// Writes everything: the project file, then each network with its devices and their tag files.
  void UpdateAll(bool bKeepDirty, bool& bOK);

  /// Fills vsgOPC and brings it on show.
  void Show(Grid& grid) const;
  /// Fills the tree with the whole project, all open, and shows it: the root with key "#1" and tag 0; a network with
  /// key "#1#" and its nID, tag type + 1; a device with its network's key, "#" and its nID, tag type of the network
  /// + 6.
  void ShowTVWStructure(Tree& tree) const;

  /// True when root, any network, any device or any tag of the open project differs from disk.
  [[nodiscard]] bool bOpcProjectDirty() const;

 private:
  void AddNetwork(std::string szNetworkName, const std::string& file, bool& bOK);
  void RefreshFrom(const std::string& file, bool& bOK);
  static void UpdateNetwork(cNetwork& network, bool bKeepDirty, bool& bOK);

  cNetworks networks_;
};

}  // namespace tavrin
