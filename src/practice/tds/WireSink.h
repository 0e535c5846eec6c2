// The sink that turns a session's answers into tokens. It holds the last DONE back until the next token or
// the end of the request tells whether more follows, which the DONE itself must say.
#pragma once

#include "practice/session/ResultSink.h"
#include "practice/tds/Tokens.h"

#include <optional>

namespace quillon::practice::tds {

class WireSink : public ResultSink {
  public:
    explicit WireSink(TokenWriter& tokens)
        : m_tokens(tokens) {}

    void Columns(const std::vector<ResultColumn>& columns) override;
    void Row(std::span<const Datum> values) override;
    void Done(const StatementEnd& end) override;
    void Message(const ServerMessage& message) override;
    void ReturnStatus(std::int32_t status) override;
    void OutputParameter(std::size_t ordinal, const std::string& name, const SqlType& type,
                         const Datum& value) override;
    void Environment(const EnvironmentChange& change) override;
    void Flush() override;

    // Ends the request's answer. Every answer has a DONE: where the session told none, an empty one is sent.
    void Finish();
    // Ends it where it stands; the acknowledgement of the attention follows as a message of its own.
    void FinishCancelled();
    void AcknowledgeAttention();

  private:
    void Release(std::uint16_t flags);

    TokenWriter& m_tokens;
    std::optional<StatementEnd> m_held;
};

} // namespace quillon::practice::tds
