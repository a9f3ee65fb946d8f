// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/page_frame.h"

#include "base/text.h"
#include "insight/page/page_colours.h"
#include "insight/page/page_resources.h"

namespace kavo {

namespace {

constexpr std::size_t kLongestName = 32;  // characters

/// Styles may stand in the page as they are: without a single allowed address they can fetch nothing. The empty
/// icon keeps browsers from asking a server for one.
std::string securityPolicy()
{
    return "default-src 'none'; style-src 'unsafe-inline'; script-src 'sha256-" + std::string(kPageScriptHash) +
           "'; img-src data:; base-uri 'none'; form-action 'none'";
}

void writeHead(Markup& page, std::string_view title, const ColourSet& scheme)
{
    page.open("head").line();
    page.empty("meta", {{"charset", "utf-8"}}).line();
    page.empty("meta", {{"http-equiv", "Content-Security-Policy"}, {"content", securityPolicy()}}).line();
    page.empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}}).line();
    page.empty("meta", {{"name", "color-scheme"}, {"content", "light dark"}}).line();
    page.empty("meta", {{"name", "referrer"}, {"content", "no-referrer"}}).line();
    page.empty("link", {{"rel", "icon"}, {"href", "data:,"}}).line();
    page.element("title", title).line();
    page.open("style").line().verbatim(colourRules(scheme)).verbatim(kPageStyle).close().line();
    page.close().line();
}

}  // namespace

std::string formatPage(std::string_view title, const ColourSet& scheme,
                       const std::function<void(Markup&)>& writeContent)
{
    Markup page;
    page.verbatim("<!DOCTYPE html>").line();
    page.open("html", {{"lang", "en"}}).line();
    writeHead(page, title, scheme);
    page.open("body").line();
    writeContent(page);
    page.open("script").verbatim(kPageScript).close().line();
    page.close().line().close().line();
    return page.written();
}

std::string pageName(std::string_view name)
{
    if (countCharacters(name) <= kLongestName) return std::string(name);
    return std::string(firstCharacters(name, kLongestName - 1)) + "…";
}

}  // namespace kavo
