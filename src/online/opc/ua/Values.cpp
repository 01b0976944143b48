#include "online/opc/ua/Values.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <utility>

#include "online/opc/Coercion.h"
#include "online/opc/Delivery.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin::ua {

namespace {

constexpr UA_DateTime TicksAt(std::chrono::year_month_day date) {
  return UtcTime(std::chrono::sys_days(date)).time_since_epoch().count() + UA_DATETIME_UNIX_EPOCH;
}

/// What a date can be. Servers send numbers far beyond for a moment without bounds, or by mistake.
constexpr UA_DateTime kFirstTime = TicksAt(std::chrono::year(100) / 1 / 1);
constexpr UA_DateTime kLastTime = TicksAt(std::chrono::year(10'000) / 1 / 1) - UA_DATETIME_SEC;

/// A built-in type and the variant type of its values. Reading and writing go by the row.
struct Kind {
  UA_DataTypeKind kind;
  VariantType type;
  Scalar (*read)(const void* element);
  void (*write)(void* element, const Scalar& value);
};

std::string TextOf(const UA_String& text) {
  if (text.length == 0) return {};
  const std::string utf8(reinterpret_cast<const char*>(text.data), text.length);
  if (auto whole = FromUtf8(utf8)) return *whole;
  std::string known;  // a character that the code page does not have shows as a question mark
  for (std::size_t i = 0; i < utf8.size();) {
    std::size_t next = i + 1;
    while (next < utf8.size() && (static_cast<unsigned char>(utf8[next]) & 0xC0U) == 0x80U) ++next;
    known += FromUtf8(utf8.substr(i, next - i)).value_or("?");
    i = next;
  }
  return known;
}

UA_String Copied(const std::string& bytes) {
  const UA_String source = View(bytes);
  UA_String copy = UA_STRING_NULL;
  if (UA_String_copy(&source, &copy) != UA_STATUSCODE_GOOD) throw RuntimeError(ErrorNumber::OutOfMemory);
  return copy;
}

template <class T, class Stored>
Scalar ReadNumber(const void* element) {
  return static_cast<Stored>(*static_cast<const T*>(element));
}

/// The value has been made one of the type before, so that it fits.
template <class T, class Stored>
void WriteNumber(void* element, const Scalar& value) {
  *static_cast<T*>(element) = static_cast<T>(std::get<Stored>(value));
}

template <class T, class Stored>
constexpr Kind NumberKind(UA_DataTypeKind kind, VariantType type) {
  return {kind, type, &ReadNumber<T, Stored>, &WriteNumber<T, Stored>};
}

Scalar ReadText(const void* element) { return TextOf(*static_cast<const UA_String*>(element)); }
void WriteText(void* element, const Scalar& value) {
  *static_cast<UA_String*>(element) = Copied(ToUtf8(std::get<std::string>(value)));
}

Scalar ReadBytes(const void* element) {
  const auto& bytes = *static_cast<const UA_ByteString*>(element);
  return bytes.length == 0 ? std::string() : std::string(reinterpret_cast<const char*>(bytes.data), bytes.length);
}
void WriteBytes(void* element, const Scalar& value) {
  *static_cast<UA_ByteString*>(element) = Copied(std::get<std::string>(value));
}

Scalar ReadLocalizedText(const void* element) { return TextOf(static_cast<const UA_LocalizedText*>(element)->text); }
void WriteLocalizedText(void* element, const Scalar& value) {
  static_cast<UA_LocalizedText*>(element)->text = Copied(ToUtf8(std::get<std::string>(value)));
}

Scalar ReadQualifiedName(const void* element) { return TextOf(static_cast<const UA_QualifiedName*>(element)->name); }

Scalar ReadGuid(const void* element) {
  UA_String text = UA_STRING_NULL;
  UA_Guid_print(static_cast<const UA_Guid*>(element), &text);
  std::string read = TextOf(text);
  UA_String_clear(&text);
  return read;
}
void WriteGuid(void* element, const Scalar& value) {
  const UA_String text = View(std::get<std::string>(value));
  if (UA_Guid_parse(static_cast<UA_Guid*>(element), text) != UA_STATUSCODE_GOOD) {
    throw RuntimeError(ErrorNumber::TypeMismatch);
  }
}

Scalar ReadNodeId(const void* element) {
  UA_String text = UA_STRING_NULL;
  UA_NodeId_print(static_cast<const UA_NodeId*>(element), &text);
  std::string read = TextOf(text);
  UA_String_clear(&text);
  return read;
}

Scalar ReadDate(const void* element) { return DaysOf(TimeOf(*static_cast<const UA_DateTime*>(element))); }
void WriteDate(void* element, const Scalar& value) {
  const auto moment = TimeOfDays(std::get<double>(value));
  if (!moment) throw RuntimeError(ErrorNumber::Overflow);
  *static_cast<UA_DateTime*>(element) = moment->time_since_epoch().count() + UA_DATETIME_UNIX_EPOCH;
}

/// Classic error codes are signed.
Scalar ReadStatus(const void* element) {
  return static_cast<std::int64_t>(static_cast<std::int32_t>(*static_cast<const UA_StatusCode*>(element)));
}
void WriteStatus(void* element, const Scalar& value) {
  *static_cast<UA_StatusCode*>(element) =
      static_cast<UA_StatusCode>(static_cast<std::int32_t>(std::get<std::int64_t>(value)));
}

constexpr std::array kKinds{
    NumberKind<bool, bool>(UA_DATATYPEKIND_BOOLEAN, VariantType::Boolean),
    NumberKind<std::int8_t, std::int64_t>(UA_DATATYPEKIND_SBYTE, VariantType::Int8),
    NumberKind<std::uint8_t, std::uint64_t>(UA_DATATYPEKIND_BYTE, VariantType::UInt8),
    NumberKind<std::int16_t, std::int64_t>(UA_DATATYPEKIND_INT16, VariantType::Int16),
    NumberKind<std::uint16_t, std::uint64_t>(UA_DATATYPEKIND_UINT16, VariantType::UInt16),
    NumberKind<std::int32_t, std::int64_t>(UA_DATATYPEKIND_INT32, VariantType::Int32),
    NumberKind<std::uint32_t, std::uint64_t>(UA_DATATYPEKIND_UINT32, VariantType::UInt32),
    NumberKind<std::int64_t, std::int64_t>(UA_DATATYPEKIND_INT64, VariantType::Int64),
    NumberKind<std::uint64_t, std::uint64_t>(UA_DATATYPEKIND_UINT64, VariantType::UInt64),
    NumberKind<float, double>(UA_DATATYPEKIND_FLOAT, VariantType::Single),
    NumberKind<double, double>(UA_DATATYPEKIND_DOUBLE, VariantType::Double),
    NumberKind<std::int32_t, std::int64_t>(UA_DATATYPEKIND_ENUM, VariantType::Int32),
    Kind{UA_DATATYPEKIND_STRING, VariantType::Text, &ReadText, &WriteText},
    Kind{UA_DATATYPEKIND_XMLELEMENT, VariantType::Text, &ReadText, &WriteText},
    Kind{UA_DATATYPEKIND_BYTESTRING, VariantType::Text, &ReadBytes, &WriteBytes},
    Kind{UA_DATATYPEKIND_LOCALIZEDTEXT, VariantType::Text, &ReadLocalizedText, &WriteLocalizedText},
    Kind{UA_DATATYPEKIND_QUALIFIEDNAME, VariantType::Text, &ReadQualifiedName, nullptr},
    Kind{UA_DATATYPEKIND_GUID, VariantType::Text, &ReadGuid, &WriteGuid},
    Kind{UA_DATATYPEKIND_NODEID, VariantType::Text, &ReadNodeId, nullptr},
    Kind{UA_DATATYPEKIND_DATETIME, VariantType::Date, &ReadDate, &WriteDate},
    Kind{UA_DATATYPEKIND_STATUSCODE, VariantType::Error, &ReadStatus, &WriteStatus},
};

const Kind* FindKind(const UA_DataType* type) {
  const auto found = std::find_if(kKinds.begin(), kKinds.end(),
                                  [type](const Kind& kind) { return type != nullptr && kind.kind == type->typeKind; });
  return found == kKinds.end() ? nullptr : &*found;
}

/// The built-in type that holds the values of a variant type best.
struct Natural {
  VariantType type;
  std::size_t index;
};
constexpr std::array kNaturals{
    Natural{VariantType::Boolean, UA_TYPES_BOOLEAN},    Natural{VariantType::Int8, UA_TYPES_SBYTE},
    Natural{VariantType::UInt8, UA_TYPES_BYTE},         Natural{VariantType::Int16, UA_TYPES_INT16},
    Natural{VariantType::UInt16, UA_TYPES_UINT16},      Natural{VariantType::Int32, UA_TYPES_INT32},
    Natural{VariantType::UInt32, UA_TYPES_UINT32},      Natural{VariantType::Int64, UA_TYPES_INT64},
    Natural{VariantType::UInt64, UA_TYPES_UINT64},      Natural{VariantType::MachineInt, UA_TYPES_INT32},
    Natural{VariantType::MachineUInt, UA_TYPES_UINT32}, Natural{VariantType::Single, UA_TYPES_FLOAT},
    Natural{VariantType::Double, UA_TYPES_DOUBLE},      Natural{VariantType::Currency, UA_TYPES_DOUBLE},
    Natural{VariantType::Date, UA_TYPES_DATETIME},      Natural{VariantType::Text, UA_TYPES_STRING},
    Natural{VariantType::Error, UA_TYPES_STATUSCODE},
};

const UA_DataType* NaturalType(VariantType type) {
  for (const Natural& natural : kNaturals) {
    if (natural.type == type) return &UA_TYPES[natural.index];
  }
  throw RuntimeError(ErrorNumber::TypeMismatch);
}

const void* ElementAt(const void* data, const UA_DataType& type, std::size_t index) {
  return static_cast<const char*>(data) + index * type.memSize;
}

Variant BytesOf(const UA_ByteString& bytes) {
  std::vector<Scalar> elements;
  for (std::size_t i = 0; i < bytes.length; ++i) elements.emplace_back(static_cast<std::uint64_t>(bytes.data[i]));
  return Variant::Array(VariantType::UInt8, std::move(elements));
}

/// A byte string is written as the array of bytes as which it is read; a text gives its characters.
Variant ByteText(const Variant& value) {
  if (!value.IsArray()) return Coerced(value, static_cast<std::uint16_t>(VariantType::Text));
  std::string bytes;
  for (const Scalar& element : value.Elements()) {
    const Scalar byte = CoercedScalar(value.ElementType(), element, VariantType::UInt8);
    bytes += static_cast<char>(std::get<std::uint64_t>(byte));
  }
  return Variant::OfText(std::move(bytes));
}

Variant AsNodeTakesIt(const Variant& value, const Kind& kind, bool array) {
  if (kind.kind == UA_DATATYPEKIND_BYTESTRING && !array) return ByteText(value);
  const auto code = static_cast<std::uint16_t>(kind.type);
  return Coerced(value, array ? static_cast<std::uint16_t>(code | kArrayBit) : code);
}

}  // namespace

UtcTime TimeOf(UA_DateTime time) {
  return UtcTime(UtcTime::duration(std::clamp(time, kFirstTime, kLastTime) - UA_DATETIME_UNIX_EPOCH));
}

UA_String View(const std::string& text) {
  return {text.size(), reinterpret_cast<UA_Byte*>(const_cast<char*>(text.data()))};
}

Variant ValueOf(const UA_Variant& value) {
  const Kind* kind = FindKind(value.type);
  if (kind == nullptr) return {};
  if (UA_Variant_isScalar(&value)) {
    if (kind->kind == UA_DATATYPEKIND_BYTESTRING) return BytesOf(*static_cast<const UA_ByteString*>(value.data));
    return {kind->type, kind->read(value.data)};
  }
  std::vector<Scalar> elements;
  elements.reserve(value.arrayLength);
  for (std::size_t i = 0; i < value.arrayLength; ++i) {
    elements.push_back(kind->read(ElementAt(value.data, *value.type, i)));
  }
  return Variant::Array(kind->type, std::move(elements));
}

ItemState StateOf(const UA_DataValue& value) {
  ItemState state;
  if (value.hasValue) state.value = ValueOf(value.value);
  state.quality = QualityOf(value.hasStatus ? value.status : UA_STATUSCODE_GOOD);
  if (value.hasSourceTimestamp) {
    state.timeStamp = TimeOf(value.sourceTimestamp);
  } else {
    state.timeStamp = value.hasServerTimestamp ? TimeOf(value.serverTimestamp) : UtcNow();
  }
  return state;
}

OwnedVariant MakeValue(const Variant& value, const NodeType& node) {
  const UA_DataType* type = node.type != nullptr ? node.type : NaturalType(value.ElementType());
  const Kind* kind = FindKind(type);
  if (kind == nullptr || kind->write == nullptr) throw RuntimeError(ErrorNumber::TypeMismatch);
  const bool array = node.shape == NodeType::Shape::Any ? value.IsArray() : node.shape == NodeType::Shape::Array;
  const Variant fitting = AsNodeTakesIt(value, *kind, array);
  const std::size_t count = fitting.Elements().size();

  OwnedVariant made;
  void* const data = array ? UA_Array_new(count, type) : UA_new(type);
  if (data == nullptr) throw RuntimeError(ErrorNumber::OutOfMemory);
  if (array) {
    UA_Variant_setArray(&made.Get(), data, count, type);
  } else {
    UA_Variant_setScalar(&made.Get(), data, type);
  }
  for (std::size_t i = 0; i < count; ++i) {
    kind->write(static_cast<char*>(data) + i * type->memSize, fitting.Elements()[i]);
  }
  return made;
}

}  // namespace tavrin::ua
