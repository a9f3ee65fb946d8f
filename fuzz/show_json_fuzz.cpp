// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// A folder of random files, loaded through the library and through the command line: what `show --json` prints, read
// back, must be what the library has loaded.

#include "base/shown_text.h"
#include "cli/command_line.h"
#include "random_folder.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

using Json = nlohmann::json;
using kavo::toUtf8;
using kavo::fuzz::require;

class RecordingHost final : public kavo::LoadingHost
{
public:
    std::vector<std::string> messages;

    void showMessage(const kavo::Message& message) override { messages.push_back(toUtf8(message.text)); }
    kavo::AfterOptions openOptions() override { return kavo::AfterOptions::GoOn; }
    void applyLayout(const std::vector<double>&) override {}
    void layoutLoaded() override {}
};

/// A standard stream that ends in memory.
class MemoryStream final
{
public:
    MemoryStream() : m_file(::open_memstream(&m_text, &m_size)) { require(m_file != nullptr); }
    ~MemoryStream()
    {
        std::fclose(m_file);
        std::free(m_text);
    }
    MemoryStream(const MemoryStream&) = delete;
    MemoryStream& operator=(const MemoryStream&) = delete;

    [[nodiscard]] std::FILE* file() const { return m_file; }

    [[nodiscard]] std::string_view content() const
    {
        std::fflush(m_file);
        return {m_text, m_size};
    }

private:
    char* m_text = nullptr;
    std::size_t m_size = 0;
    std::FILE* m_file;
};

/// What the command printed; its exit status must tell whether the loading went through.
Json printed(const kavo::fuzz::RandomFolder& folder, const kavo::LoadingResult& result)
{
    const std::string path = folder.path().string();
    const std::vector<const char*> arguments = {
        "kavo-timing-cli", "--program-folder", path.c_str(), "--user", folder.kUser, "show", "--json"};
    const MemoryStream out;
    const MemoryStream error;
    const int status = kavo::runCommandLine(static_cast<int>(arguments.size()), arguments.data(),
                                            {.in = stdin, .out = out.file(), .error = error.file(), .output = {}});
    require(status == (result.end == kavo::LoadingEnd::Completed ? 0 : 1));
    return Json::parse(out.content());
}

void compareRow(const Json& json, const kavo::Session& session, int row)
{
    for (int i = 0; i < kavo::kColumns; ++i) {
        const kavo::Cell& cell = session.table.cell(row, static_cast<kavo::Column>(i));
        const auto column = static_cast<std::size_t>(i);
        require(json["cells"][column] == toUtf8(cell.text));
        require(json["bold"][column] == cell.bold);
        require(json["colours"][column] == cell.colour.value_or(session.colours.ColText));
    }
}

void compareSide(const Json& json, const kavo::Session& session, kavo::Side side, const char* name)
{
    require(json["names"][name] == toUtf8(session.state.name(side)));
    for (const kavo::Grade& grade : kavo::grades())
        require(json["grades"][name][std::string(grade.name)] == session.state.counter(side, grade.category));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const kavo::fuzz::RandomFolder folder;
    folder.fill(kavo::fuzz::textOf(data, size));
    kavo::Session session;
    session.programFolder = folder.path();
    RecordingHost host;
    const auto result = kavo::load(session, host, {.user = folder.kUser, .makesFolders = false});
    const Json json = printed(folder, result);
    require(json["user"] == toUtf8(session.UserName) && json["caption"] == toUtf8(session.caption));
    require(json["messages"] == host.messages);
    require(json["error"] == (result.error.empty() ? Json(nullptr) : Json(toUtf8(result.error))));
    for (int i = 0; i < kavo::kColumns; ++i)
        require(json["headers"][static_cast<std::size_t>(i)] ==
                toUtf8(session.table.header(static_cast<kavo::Column>(i))));
    require(json["rows"].size() == static_cast<std::size_t>(session.table.rowCount()));
    for (int row = 1; row <= session.table.rowCount(); ++row)
        compareRow(json["rows"][static_cast<std::size_t>(row) - 1], session, row);
    compareSide(json, session, kavo::Side::Player1, "player1");
    compareSide(json, session, kavo::Side::Player2, "player2");
    compareSide(json, session, kavo::Side::Team, "team");
    require(json["victories"]["player1"] == session.state.Victories1);
    require(json["victories"]["player2"] == session.state.Victories2);
    return 0;
}
