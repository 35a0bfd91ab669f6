#include "jet/database.h"

#include "base/error.h"
#include "jet/session.h"
#include "jet/sqlparser.h"

namespace jet {
namespace {

using base::Error;
using base::ErrorNumber;

}  // namespace

std::unique_ptr<Database> Database::OpenDatabase(FileStore& files, std::u16string_view path,
                                                 const CacheLimits& limits) {
    auto session = std::make_shared<Session>(Store::open(files, path), limits);
    return std::unique_ptr<Database>(new Database(std::move(session)));
}

Database::Database(std::shared_ptr<Session> session) : session_(std::move(session)) {}

Database::~Database() {
    Close();
}

std::unique_ptr<Recordset> Database::OpenRecordset(std::u16string_view source) {
    const PreparedQuery* query = session_->knownQuery(source);
    if (!query && !isSelect(source)) {
        Table& table = session_->store().table(source);
        return std::unique_ptr<Recordset>(new Recordset(session_, table));
    }
    if (!query) query = &session_->prepare(source);
    return std::unique_ptr<Recordset>(new Recordset(session_, query->table(), query->query()));
}

void Database::readAhead(std::u16string_view query) {
    session_->readAhead(query);
}

bool Database::hasTable(std::u16string_view name) const {
    return session_->store().hasTable(name);
}

bool Database::hasField(std::u16string_view table, std::u16string_view field) const {
    return session_->store().table(table).definition().find(field) != nullptr;
}

bool Database::readOnly() const {
    return session_->store().readOnly();
}

void Database::BeginTrans() {
    if (session_->store().inTransaction())
        throw Error(ErrorNumber::InvalidOperation, u"Une transaction est d\u00E9j\u00E0 en cours.");
    session_->store().begin();
}

void Database::CommitTrans() {
    if (!session_->store().inTransaction())
        throw Error(ErrorNumber::InvalidOperation, u"Aucune transaction n'est en cours.");
    session_->store().commit();
}

void Database::Rollback() {
    if (!session_->store().inTransaction())
        throw Error(ErrorNumber::InvalidOperation, u"Aucune transaction n'est en cours.");
    session_->store().rollback();
}

void Database::Idle() {
    session_->store().finishWriting();
}

void Database::Close() {
    session_->close();
}

Transaction::Transaction(Database& database) : database_(database) {
    database_.BeginTrans();
}

Transaction::~Transaction() {
    // A failed write may have ended the transaction already, and the database may be closed.
    const Session& session = *database_.session_;
    if (open_ && session.isOpen()) session.store().rollback();
}

void Transaction::Commit() {
    open_ = false;
    database_.CommitTrans();
}

}  // namespace jet
