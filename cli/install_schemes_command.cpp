// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "base/text.h"
#include "cli/command_factories.h"
#include "cli/option_parser.h"
#include "cli/suggestion.h"
#include "core/colour_schemes.h"
#include "core/program_folder.h"
#include "core/users.h"

#include <algorithm>

namespace kavo {

namespace {

/// The schemes that the user named, in any case of letters, as their files are called; without a name all.
std::vector<std::string> chosenOf(const std::vector<std::string>& supplied, const std::vector<std::string>& named)
{
    if (named.empty()) return supplied;
    std::vector<std::string> chosen;
    for (const std::string& name : named) {
        const auto found = std::find_if(supplied.begin(), supplied.end(), [&name](const std::string& candidate) {
            return equalIgnoringCase(candidate, name);
        });
        if (found == supplied.end()) {
            std::string all = "; there are";
            for (const std::string& candidate : supplied)
                all.append(candidate == supplied.front() ? " " : ", ").append(candidate);
            throw UsageError("unknown scheme " + name + didYouMean(name, {supplied.begin(), supplied.end()}, all));
        }
        chosen.push_back(*found);
    }
    return chosen;
}

class InstallSchemesCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {argument({.name = "NAME"}, &m_names, "which; all of them where none is named")};
    }

    ExitStatus run(const CommandContext& context) override
    {
        const auto programFolder = context.programFolder();
        const auto source = findSuppliedFolder(programFolder, executableFolder(), "schemes");
        if (source.empty()) throw RunTimeError(Failure::PathNotFound, programFolder / "schemes");
        const auto user = userFolder(programFolder, context.user ? *context.user : readCurrentUser(programFolder));
        for (const std::string& name : chosenOf(schemesIn(source), m_names)) {
            const bool isNew = installScheme(source, name, user);
            context.messages.tell(name + (isNew ? ": installed" : ": there already, left as it is"));
        }
        return kDone;
    }

private:
    std::vector<std::string> m_names;
};

}  // namespace

std::unique_ptr<Command> makeInstallSchemesCommand()
{
    return std::make_unique<InstallSchemesCommand>();
}

}  // namespace kavo
