// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/insight_json.h"
#include "cli/printable.h"
#include "cli/report_output.h"
#include "insight/doctor.h"

namespace kavo {

namespace {

class DoctorCommand final : public Command
{
public:
    std::vector<Option> options() override { return {flag("--json", m_json, "print everything as one JSON object")}; }

    ExitStatus run(const CommandContext& context) override
    {
        const Findings findings = examine(context.programFolder());
        if (m_json) {
            writeJson(context, formatFindingsJson(findings));
        } else {
            for (const Finding& finding : findings) context.out.write(printable(describe(finding)) + "\n");
        }
        return findings.empty() ? kDone : kEndedEarly;
    }

private:
    bool m_json = false;
};

}  // namespace

std::unique_ptr<Command> makeDoctorCommand()
{
    return std::make_unique<DoctorCommand>();
}

}  // namespace kavo
