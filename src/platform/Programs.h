#pragma once

#include <string_view>

namespace tavrin {

/// What the programs of the system that administer the machine are started for.
enum class Administration {
  OpcSettings,        ///< where the servers are and who may use them
  UserManager,        ///< users and their groups
  UserPasswords,      ///< users and their passwords, where that is a program of its own
  Services,           ///< what runs in the background
  ServerManager,      ///< what runs in the background, where an older program does that
  EventLog,           ///< what the system has noted
  SystemInformation,  ///< what the machine consists of
};

/// Number of the window of a program that is started.
enum class WindowStyle : int { Normal = 1, Minimised = 2 };

/// The programs of the system that the editor starts. None is waited for, and no path is ever read by a shell.
class Programs {
 public:
  Programs() = default;
  Programs(const Programs&) = delete;
  Programs& operator=(const Programs&) = delete;
  virtual ~Programs() = default;

  /// Starts the first program found for this purpose. @throws RuntimeError 53 when there is none
  virtual void Start(Administration purpose, WindowStyle style) = 0;

  /// Shows a text file. @throws RuntimeError 53 when there is no program for texts
  virtual void ShowText(std::string_view path, WindowStyle style) = 0;

  /// Opens a document with the user's program for it, at a page where the program can be told.
  /// @return false when the file is missing or there is no program for it
  [[nodiscard]] virtual bool OpenDocument(std::string_view path, int page) = 0;
};

}  // namespace tavrin
