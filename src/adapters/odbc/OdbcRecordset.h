// A recordset of the data access declarations over a stream of results.
//
// A forward-only recordset reads rows as they are asked for; the others keep the rows they have read, so that
// MoveFirst works. All are read-only: no statement of the system writes through a recordset.
#pragma once

#include <memory>

#include "adapters/odbc/ResultStream.h"
#include "platform/DataAccess.h"

namespace quillon::adapters {

class OdbcRecordset : public data::Recordset {
  public:
    // Not open.
    OdbcRecordset() = default;
    // Open on the result on which the stream stands, or closed when that has no rows. Forward-only.
    explicit OdbcRecordset(std::shared_ptr<ResultStream> stream);

    void SetCursorLocation(data::CursorLocation location) override;
    void Open(const std::string& source, const data::ConnectionRef& connection, data::CursorType cursor,
              data::LockType lock, data::CommandType type) override;
    void Close() override;
    data::ObjectState State() const override;
    bool Bof() const override;
    bool Eof() const override;
    void MoveFirst() override;
    void MoveNext() override;
    std::size_t FieldCount() const override;
    data::Field FieldAt(std::size_t index) const override;
    data::Field FieldNamed(const std::string& name) const override;
    std::vector<std::vector<Value>> GetRows() override;
    data::RecordsetRef NextRecordset() override;

  private:
    void Start(bool keepsRows);
    void RequireOpen() const;
    // Reads the next row of the stream into m_row; at the end m_eof.
    void ReadRow();
    // Stands on the first row, as an open recordset is seen to do. Read at the first look, so that a row that
    // cannot be had is a failure of the look and not of the step that came to this result.
    void RequireRow() const {
        if (!m_open || !m_isStarted)
            Look();
    }
    void Look() const;
    // For Open, which leaves the recordset closed when it fails.
    void RequireFirstRow();

    std::shared_ptr<ResultStream> m_stream;
    data::CursorLocation m_location = data::CursorLocation::Server;
    std::vector<std::string> m_names;
    bool m_open = false;
    bool m_keepsRows = false;
    bool m_isStarted = false;
    bool m_bof = true;
    bool m_eof = true;
    std::vector<Value> m_row;
    std::vector<std::vector<Value>> m_rows; // kept rows, all that were read
    std::size_t m_position = 0;             // in m_rows
};

} // namespace quillon::adapters
