// A query kept ready for the next one that says the same with other texts and numbers: whoever
// looks up thousands of titles has the words around them parsed and bound once.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jet/query.h"
#include "jet/sqllexer.h"

namespace jet {

class Store;
class Table;

class PreparedQuery {
  public:
    // Parses and binds `sql`, a SELECT. `store` and `textOrder` must outlive the query. Throws
    // base::Error: SyntaxError, TableNotFound, and as bindQuery().
    PreparedQuery(std::u16string_view sql, Store& store, const TextOrder& textOrder);
    PreparedQuery(const PreparedQuery&) = delete;
    PreparedQuery& operator=(const PreparedQuery&) = delete;

    // Turns it into `sql` when that differs from it in texts between quotation marks and in numbers
    // alone; else gives false and changes nothing. Throws SyntaxError, Overflow.
    bool become(std::u16string_view sql);

    Table& table() const { return *table_; }
    const Query& query() const { return query_; }

  private:
    struct Literal {
        size_t start = 0;  // in sql_, as end
        size_t end = 0;
        TokenKind kind = TokenKind::Text;
        bool negative = false;  // a number behind a minus sign
        ColumnTest* test = nullptr;
    };

    void findLiterals();
    void linkLiterals();
    void set(const Literal& literal, const Token& value) const;

    std::u16string sql_;  // as it was first
    const TextOrder& textOrder_;
    Table* table_;
    Query query_;
    bool linked_ = false;            // literals_ know their tests
    std::vector<Literal> literals_;  // in the order of sql_
    std::vector<Token> values_;      // room for those of the next, good while it is read
};

// The queries asked for last, each for all that become it.
class PreparedQueries {
  public:
    // `sql` ready to be answered, until the next call; null when no kept query becomes it.
    const PreparedQuery* known(std::u16string_view sql);
    // The same, a new one if need be. Lifetimes and errors as for PreparedQuery; each call is for
    // the same store.
    const PreparedQuery& prepare(std::u16string_view sql, Store& store, const TextOrder& textOrder);
    void clear() { queries_.clear(); }

  private:
    std::vector<std::unique_ptr<PreparedQuery>> queries_;  // the last one asked for in front
};

}  // namespace jet
