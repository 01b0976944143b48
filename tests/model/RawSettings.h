#pragma once

namespace tavrin {

/// The stored fields of a project, network or device past its setters, for values that no setter and no file lets in.
template <class Object>
auto& RawSettings(Object& object) {
  struct Access : Object {
    static auto& Of(Object& of) { return of.*(&Access::settings_); }
  };
  return Access::Of(object);
}

}  // namespace tavrin
