// The SELECT dialect of the program's queries:
//
//   SELECT [DISTINCT] (* | column {, column}) FROM table
//       [WHERE expression] [ORDER BY column [ASC | DESC] {, column [ASC | DESC]}] [;]
//
// An expression compares a column with a literal (= <> < <= > >= in either order, [NOT] LIKE,
// IS [NOT] NULL) and joins such tests by NOT, AND, OR, in this order of binding, and parentheses.
// Literals are texts in double quotation marks or apostrophes (doubled inside), numbers, TRUE,
// FALSE and NULL. Names and keywords ignore case; a name in [brackets] may be anything.
#pragma once

#include <string_view>

#include "jet/sqlast.h"

namespace jet {

// Throws base::Error SyntaxError with the place in the query.
SelectStatement parseSelect(std::u16string_view sql);

// Whether `text` begins with the keyword SELECT.
bool isSelect(std::u16string_view text);

}  // namespace jet
