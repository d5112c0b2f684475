#include "tools/health/LogEntry.h"

#include <algorithm>

#include "tools/common/Integer.h"
#include "tools/common/Names.h"
#include "tools/values/NumberOf.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;

bool isWordLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || static_cast<unsigned char>(letter) >= 0x80;
}

bool isPartOfWord(char letter) {
    return isWordLetter(letter) || isDigit(letter);
}

// Whether the words of a text stand in another as they are, and not as parts of longer words. Both in lower
// case.
bool hasWords(const std::string& text, const std::string& words) {
    for (std::size_t at = text.find(words); at != std::string::npos; at = text.find(words, at + 1)) {
        const std::size_t end = at + words.size();
        if ((at == 0 || !isPartOfWord(text[at - 1])) && (end == text.size() || !isPartOfWord(text[end]))) {
            return true;
        }
    }
    return false;
}

// A number alone may be anything's.
bool tellsApart(const std::string& words) {
    return std::any_of(words.begin(), words.end(), isWordLetter);
}

std::vector<std::string> textsIn(const TCIMValue* list) {
    std::vector<std::string> texts;
    if (list != nullptr && list->IsArray()) {
        for (const TCIMValue& entry : elementsOf(*list)) {
            texts.push_back(plainText(entry));
        }
    }
    return texts;
}

}  // namespace

LogEntry LogEntry::of(const PropertyIndex& properties, const ClassSchema& schema) {
    LogEntry entry;
    entry.node = properties.text("NodeID");
    entry.time = properties.text("CreationTimeStamp");
    entry.moment = Moment::of(entry.time);
    if (const auto code = numberOf(properties.value("PerceivedSeverity"))) {
        entry.severity = severityOfEntry(*code);
        const ValueMap* meanings = schema.valueMapOf("PerceivedSeverity");
        const auto text =
            meanings == nullptr ? std::nullopt : meanings->textOf(*properties.value("PerceivedSeverity"));
        entry.severityText = text ? *text : code->text();
    }
    entry.text = properties.text("Message");
    entry.text = entry.text.empty() ? properties.text("RecordData") : entry.text;
    entry.arguments = textsIn(properties.value("MessageArguments"));
    return entry;
}

bool LogEntry::names(const Element& element) const {
    if (node != element.node) {
        return false;
    }
    const std::string said = lowerName(text);
    const std::string name = lowerName(element.name);
    const std::string id = lowerName(element.deviceId);
    return hasWords(said, name) || (tellsApart(id) && hasWords(said, id)) ||
           std::any_of(arguments.begin(), arguments.end(), [&](const std::string& argument) {
               const std::string words = lowerName(argument);
               return tellsApart(words) && hasWords(name, words);
           });
}

bool LogEntry::isNewerThan(const LogEntry& other) const {
    if (!moment || !other.moment) {
        return moment.has_value();
    }
    return moment->microseconds > other.moment->microseconds;
}

}  // namespace tool
