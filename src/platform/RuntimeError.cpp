#include "platform/RuntimeError.h"

namespace tavrin {

std::string_view Describe(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::InvalidCall: return "Invalid procedure call or argument";
    case ErrorNumber::Overflow: return "Overflow";
    case ErrorNumber::OutOfMemory: return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
    case ErrorNumber::TypeMismatch: return "Type mismatch";
    case ErrorNumber::InternalError: return "Internal error";
    case ErrorNumber::FileNotFound: return "File not found";
    case ErrorNumber::DeviceIoError: return "Device I/O error";
    case ErrorNumber::DiskFull: return "Disk full";
    case ErrorNumber::TooManyFiles: return "Too many files";
    case ErrorNumber::PermissionDenied: return "Permission denied";
    case ErrorNumber::PathFileAccess: return "Path/File access error";
    case ErrorNumber::PathNotFound: return "Path not found";
    case ErrorNumber::NoObject: return "Object variable or With block variable not set";
    case ErrorNumber::KeyInUse: return "This key is already associated with an element of this collection";
  }
  return "Application-defined or object-defined error";
}

}  // namespace tavrin
