#pragma once

#include <new>
#include <string_view>

#include <open62541/types.h>

namespace tavrin {

/// The library's texts are unsigned bytes in UTF-8, not ended by a zero.
[[nodiscard]] inline std::string_view ViewOf(const UA_String& text) {
  return {reinterpret_cast<const char*>(text.data), text.length};
}

/// A view as the library wants it; `utf8` outlives the result, and nobody writes there.
[[nodiscard]] inline UA_String Borrow(std::string_view utf8) {
  return {utf8.size(), reinterpret_cast<UA_Byte*>(const_cast<char*>(utf8.data()))};
}

/// A text that the library frees.
[[nodiscard]] inline UA_String CopyOf(std::string_view utf8) {
  const UA_String borrowed = Borrow(utf8);
  UA_String copy{};
  if (UA_String_copy(&borrowed, &copy) != UA_STATUSCODE_GOOD) throw std::bad_alloc();
  return copy;
}

}  // namespace tavrin
