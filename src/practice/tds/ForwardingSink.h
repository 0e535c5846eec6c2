// A sink that passes everything on to another: the base of sinks that change one thing.
#pragma once

#include "practice/session/ResultSink.h"

namespace quillon::practice::tds {

class ForwardingSink : public ResultSink {
  public:
    explicit ForwardingSink(ResultSink& target)
        : m_target(target) {}

    void Columns(const std::vector<ResultColumn>& columns) override { m_target.Columns(columns); }
    void Row(std::span<const Datum> values) override { m_target.Row(values); }
    void Done(const StatementEnd& end) override { m_target.Done(end); }
    void Message(const ServerMessage& message) override { m_target.Message(message); }
    void ReturnStatus(std::int32_t status) override { m_target.ReturnStatus(status); }
    void OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                         const Datum& value) override {
        m_target.OutputParameter(ordinal, name, type, value);
    }
    void Environment(const EnvironmentChange& change) override { m_target.Environment(change); }
    void Flush() override { m_target.Flush(); }

  private:
    ResultSink& m_target;
};

} // namespace quillon::practice::tds
