#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace tavrin {

/// Numbers of the run-time errors that users know from the error report. Each has one fixed English description.
enum class ErrorNumber : int {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  InternalError = 51,
  FileNotFound = 53,
  DeviceIoError = 57,
  DiskFull = 61,
  TooManyFiles = 67,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  NoObject = 91,
  KeyInUse = 457,
};

/// The description that belongs to a number, e.g. "File not found" for 53.
[[nodiscard]] std::string_view Describe(ErrorNumber number);

/// A failure that ends the running command. Only the error trap (model/shared/modMain.h) and IgnoreErrors catch it.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(ErrorNumber number) : number_(number) {}

  [[nodiscard]] ErrorNumber Number() const { return number_; }
  [[nodiscard]] std::string_view Description() const { return Describe(number_); }
  [[nodiscard]] const char* what() const noexcept override { return Describe(number_).data(); }

 private:
  ErrorNumber number_;
};

}  // namespace tavrin
