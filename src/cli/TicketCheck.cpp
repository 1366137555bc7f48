#include "cli/TicketCheck.h"

#include "cli/TicketRules.h"
#include "platform/text/Utf8.h"
#include "records/FullColorKeys.h"

#include <algorithm>
#include <numeric>

namespace tarvo {
namespace {

std::string OtherKind(const CFPropertyList& value, const char* wanted)
{
    return std::string("is of kind ") + value.kindName() + " and should be " + wanted;
}

bool IsNumber(const CFPropertyList& value)
{
    return value.get<std::int64_t>() != nullptr || value.get<double>() != nullptr;
}

std::string FaultOfNumber(const EntryRule& rule, const CFPropertyList& value)
{
    if (!IsNumber(value)) {
        return OtherKind(value, "a number");
    }
    const auto number = Int32Value(&value);
    if (!number) {
        return "is no whole number of 32 bits";
    }
    if (*number == UnsetValue) {
        return rule.kind == EntryKind::Count ? "cannot be unset" : "";
    }
    if (rule.limits == nullptr || rule.limits().contains(*number)) {
        return "";
    }
    return "is " + std::to_string(*number) + "; it may be " + rule.limits().text();
}

std::string FaultOfText(const CFPropertyList& value, std::size_t longest)
{
    const auto* text = value.get<std::string>();
    if (text == nullptr) {
        return OtherKind(value, "a string");
    }
    const std::size_t length = Utf8Length(*text);
    return length <= longest ? ""
                             : "has " + std::to_string(length) + " characters; " +
                                   std::to_string(longest) + " are the most";
}

std::size_t LongestText(const EntryRule& rule)
{
    return rule.limits == nullptr ? static_cast<std::size_t>(-1)
                                  : static_cast<std::size_t>(rule.limits().highest());
}

// What is wrong with the value by itself; "" for nothing.
std::string FaultOf(const EntryRule& rule, const CFPropertyList& value)
{
    switch (rule.kind) {
    case EntryKind::Number:
    case EntryKind::Count:
        return FaultOfNumber(rule, value);
    case EntryKind::Flag:
        return value.get<bool>() != nullptr ? "" : OtherKind(value, "a boolean");
    case EntryKind::FlagOrNumber:
        return value.get<bool>() != nullptr || IsNumber(value)
                   ? ""
                   : OtherKind(value, "a boolean or a number");
    case EntryKind::Text:
        return FaultOfText(value, LongestText(rule));
    case EntryKind::NumberOrText:
        return IsNumber(value) ? FaultOfNumber(rule, value)
                               : FaultOfText(value, LongestProfileName);
    case EntryKind::Date:
        return value.get<CFDate>() != nullptr ? "" : OtherKind(value, "a date");
    case EntryKind::Entries:
        return value.get<CFDictionary>() != nullptr ? "" : OtherKind(value, "a dictionary");
    case EntryKind::ListOfEntries:
        return value.get<CFArray>() != nullptr ? "" : OtherKind(value, "an array");
    case EntryKind::Anything:
        break;
    }
    return "";
}

// How many characters must be put in, left out or changed to make one text the other.
std::size_t Distance(std::string_view text, std::string_view other)
{
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t line = 1; line <= text.size(); ++line) {
        std::size_t diagonal = std::exchange(row[0], line);
        for (std::size_t column = 1; column <= other.size(); ++column) {
            const std::size_t changed = diagonal + (text[line - 1] == other[column - 1] ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({changed, row[column] + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

// The key that somebody may have meant; "" when none is like it.
std::string_view LikelyKey(const EntryRule* rule, std::string_view key)
{
    constexpr std::size_t LongestKey = 100;
    constexpr std::size_t MostSlips = 2;
    for (; key.size() <= LongestKey && !rule->key.empty(); ++rule) {
        if (Distance(key, rule->key) <= MostSlips) {
            return rule->key;
        }
    }
    return "";
}

constexpr std::string_view OurPrefix = "com.tarvo.print.";

// The ticket's key that lacks its prefix here; null when there is none.
const EntryRule* RuleBehindPrefix(std::string_view key)
{
    return FindRule(TicketRules(), std::string(OurPrefix).append(key));
}

std::string UnknownKey(const EntryRule* rules, std::string_view key)
{
    const EntryRule* prefixed = rules == TicketRules() ? RuleBehindPrefix(key) : nullptr;
    const std::string_view likely = prefixed != nullptr ? prefixed->key : LikelyKey(rules, key);
    return likely.empty() ? "is an unknown key"
                          : "is an unknown key; \"" + std::string(likely) + "\" is one";
}

// A ticket holds keys of others as well. What only lacks the prefix is meant to be ours.
bool IsOurs(std::string_view key)
{
    return key.starts_with("com.tarvo.") || RuleBehindPrefix(key) != nullptr;
}

void CheckEntries(const TicketPlace& place, const EntryRule* rules, Findings& findings)
{
    std::size_t index = 0;
    for (const auto& [key, value] : place.entries()) {
        const EntryRule* rule = FindRule(rules, key);
        std::string fault;
        if (rule != nullptr) {
            fault = FaultOf(*rule, value);
        } else if (rules != TicketRules() || IsOurs(key)) {
            fault = findings.isFull() ? "is unknown" : UnknownKey(rules, key);
        }
        if (!fault.empty()) {
            findings.note(place.findingAt(index, std::move(fault)));
        }
        ++index;
    }
}

void CheckMembers(const TicketPlace& place, std::string_view key, Findings& findings)
{
    for (const CFPropertyList& member : *place.entries().get<CFArray>(key)) {
        if (member.get<CFDictionary>() == nullptr) {
            findings.note(place.finding(key, std::string("holds a value of kind ") +
                                                 member.kindName() +
                                                 " and should hold dictionaries alone"));
            return;
        }
    }
}

void CheckInside(const TicketPlace& place, const EntryRule* rules, Findings& findings)
{
    CheckEntries(place, rules, findings);
    for (const EntryRule* rule = rules; !rule->key.empty(); ++rule) {
        if (rule->kind == EntryKind::Entries) {
            if (const auto inside = place.inside(rule->key)) {
                CheckInside(*inside, rule->inside, findings);
            }
        } else if (rule->kind == EntryKind::ListOfEntries &&
                   place.entries().get<CFArray>(rule->key) != nullptr) {
            CheckMembers(place, rule->key, findings);
            for (const TicketPlace& member : place.listed(rule->key)) {
                CheckInside(member, rule->inside, findings);
            }
        }
    }
}

} // namespace

void CheckTicketEntries(const TicketPlace& ticket, Findings& findings)
{
    CheckInside(ticket, TicketRules(), findings);
}

} // namespace tarvo
