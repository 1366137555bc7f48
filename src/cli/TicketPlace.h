#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/cf/PropertyListReader.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvo {

/// Something that is wrong with a file.
struct Finding {
    std::size_t line;        // 0 when it is not known
    std::string entry;       // what it is about: "com.tarvo.print.JobLevelStock/Weight"
    std::string reason;      // goes on behind that: "is 1000; it may be 1 to 999"
    std::size_t element = 0; // orders those of one line
    bool operator==(const Finding&) const = default;
};

/// What is wrong with a file, up to a number that nobody reads through.
class Findings {
public:
    static constexpr std::size_t Most = 1000;

    void note(Finding finding)
    {
        if (isFull()) {
            ++more_;
        } else {
            list_.push_back(std::move(finding));
        }
    }
    /// Counts that many whose list was full.
    void countMore(std::size_t count) { more_ += count; }
    /// More are counted only; no pains need be taken with them.
    bool isFull() const { return list_.size() == Most; }
    const std::vector<Finding>& list() const { return list_; }
    std::size_t more() const { return more_; }
    /// In the order of the file.
    void sort();

private:
    std::vector<Finding> list_;
    std::size_t more_ = 0; // that are not in the list
};

/// A dictionary of a ticket with where it stands; borrows the ticket and its places.
class TicketPlace {
public:
    /// The ticket itself.
    /// @param place  null: the lines are not known
    TicketPlace(const CFDictionary& ticket, const PropertyListPlace* place)
        : TicketPlace(ticket, place, "")
    {
    }

    const CFDictionary& entries() const { return *entries_; }
    std::string pathOf(std::string_view key) const { return path_ + std::string(key); }
    /// Of the entry, or of the dictionary when it lacks the entry.
    std::size_t lineOf(std::string_view key) const;
    /// A dictionary under the key; nullopt when there is none.
    std::optional<TicketPlace> inside(std::string_view key) const;
    /// The dictionaries of an array under the key.
    std::vector<TicketPlace> listed(std::string_view key) const;

    Finding finding(std::string_view key, std::string reason) const
    {
        return {lineOf(key), pathOf(key), std::move(reason)};
    }
    /// The same for the entry at an index, as they come in the dictionary.
    Finding findingAt(std::size_t index, std::string reason) const;

private:
    TicketPlace(const CFDictionary& entries, const PropertyListPlace* place, std::string path)
        : entries_(&entries), place_(place), path_(std::move(path))
    {
    }
    const PropertyListPlace* placeOf(std::string_view key) const;

    const CFDictionary* entries_;
    const PropertyListPlace* place_;
    std::string path_; // "" or what stands before a key
};

} // namespace tarvo
