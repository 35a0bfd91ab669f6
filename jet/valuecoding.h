// Values to and from the bytes of their cells.
#pragma once

#include "jet/cell.h"
#include "jet/rawtext.h"
#include "jet/value.h"

namespace jet {

// `cell` is not null; `column` is a number column.
double decodeNumber(const Column& column, Cell cell);
// The same as a Value: whole numbers as int64_t.
Value decodeNumberValue(const Column& column, Cell cell);

// The bytes of `value`, which is not Null, in a column that is no Boolean; for Memo and Ole the
// bytes of the long value. Replaces `out`. Throws TypeMismatch, Overflow, ValueTooLong (naming the
// column and its limit), or NotSupported for a character that Jet 3 cannot hold.
void encodeValue(const Column& column, const Value& value, bool wide, Bytes& out);

}  // namespace jet
