#pragma once

#include "foundation/DataParts.h"
#include "foundation/Result.h"
#include "foundation/SharedData.h"

#include <cstddef>
#include <span>
#include <string_view>

/// The type-independent part of JSON reading: tables describe a record, and one pass over the bytes fills it
/// by means of them. `JsonCoding.h` makes the tables.
namespace brisklog::json {

struct ValueDecoder;

/// What happens when a record lacks the key of one of its fields.
enum class IfMissing {
    isError,
    /// For a field that files of earlier versions do not have: the member keeps its default.
    keepsDefault,
};

/// The result of a read function: null on success, otherwise why the value was rejected.
using Complaint = const char*;

/// One key of a record.
struct FieldDecoder {
    std::string_view key;
    const ValueDecoder* value;
    IfMissing ifMissing;
    /// Where in the record the value goes; makes room for it if the field is optional.
    void* (*locate)(void* record);
    /// Makes an optional field absent; null for other fields.
    void (*clear)(void* record);
};

/// How one type is read. A null function means that this kind of token does not fit the type.
struct ValueDecoder {
    /// What the type is called in an error ("text", "number", …).
    const char* expected;
    Complaint (*readText)(void* target, std::string_view text) = nullptr;
    Complaint (*readNumber)(void* target, double number) = nullptr;
    Complaint (*readBoolean)(void* target, bool truth) = nullptr;
    /// For bytes, which are written as Base64 text.
    void (*takeData)(void* target, SharedData data) = nullptr;
    /// For lists: empties the target, and appends one element to be filled next.
    void (*beginList)(void* target) = nullptr;
    void* (*appendElement)(void* target) = nullptr;
    const ValueDecoder* element = nullptr;
    /// For records: at most 64 fields.
    std::span<const FieldDecoder> fields = {};
};

/// Fills `target` from one JSON document. Everything must fit: required keys present, types exact,
/// well-formed UTF-8, nothing after the document. Unknown keys are skipped, the last of several equal keys
/// counts, and `null` makes an optional field absent. The error names byte offset and path, as in
/// "[3].entries[17].isInvoiced: missing (byte 4711)". Nesting uses no stack.
Result<Done> decodeInto(const ValueDecoder& decoder, void* target, std::string_view bytes);

/// The same for a document that is read in parts and never held in memory as a whole; bytes are shared
/// through the pool. A text or nesting for which the reader would need more than 16 MiB is an error.
Result<Done> decodeInto(const ValueDecoder& decoder, void* target, DataParts& parts, SharedDataPool& pool);

} // namespace brisklog::json
