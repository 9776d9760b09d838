#pragma once

#include "foundation/DataParts.h"
#include "foundation/Result.h"
#include "foundation/SharedData.h"

#include <cstddef>
#include <span>
#include <string_view>

/// The part of JSON reading that knows no types: a record describes itself by tables, one pass over the bytes
/// fills it through them. `JsonCoding.h` makes the tables.
namespace brisklog::json {

struct ValueDecoder;

/// What becomes of a record without the key of one of its fields.
enum class IfMissing {
    isError,
    /// For a field that files of earlier versions do not have: the member keeps what its declaration gives
    /// it.
    keepsDefault,
};

/// What a reading function returns: null when the value was taken, else why not.
using Complaint = const char*;

/// One key of a record.
struct FieldDecoder {
    std::string_view key;
    const ValueDecoder* value;
    IfMissing ifMissing;
    /// Where in the record the value goes; makes room for it where the field is optional.
    void* (*locate)(void* record);
    /// Makes an optional field absent; null for any other one.
    void (*clear)(void* record);
};

/// How one type is read. A null function means that this kind of token does not fit the type.
struct ValueDecoder {
    /// What the type is called in a complaint ("text", "number", …).
    const char* expected;
    Complaint (*readText)(void* target, std::string_view text) = nullptr;
    Complaint (*readNumber)(void* target, double number) = nullptr;
    Complaint (*readBoolean)(void* target, bool truth) = nullptr;
    /// Bytes, which come as Base64 text.
    void (*takeData)(void* target, SharedData data) = nullptr;
    /// Lists: empties the target, and appends one element to be filled next.
    void (*beginList)(void* target) = nullptr;
    void* (*appendElement)(void* target) = nullptr;
    const ValueDecoder* element = nullptr;
    /// Records: at most 64 fields.
    std::span<const FieldDecoder> fields = {};
};

/// Fills `target` from one JSON document. Everything must fit: required keys present, types exact,
/// well-formed UTF-8, nothing after the document. Unknown keys are passed over, of a repeated key the last
/// one counts, `null` for an optional key is absence. The error names byte offset and path, as in
/// "[3].entries[17].isInvoiced: missing (byte 4711)". Depth of nesting costs no stack.
Result<Done> decodeInto(const ValueDecoder& decoder, void* target, std::string_view bytes);

/// The same for a document that comes in parts and is never whole in memory; bytes are shared through the
/// pool. A text or a depth of nesting for which the reader would need more than 16 MiB is an error.
Result<Done> decodeInto(const ValueDecoder& decoder, void* target, DataParts& parts, SharedDataPool& pool);

} // namespace brisklog::json
