#include "storage/sets_file.h"

#include "platform/fault.h"
#include "platform/files.h"
#include "storage/line_reader.h"
#include "storage/toml_text.h"

#include <cmath>
#include <sstream>

#define TOML_HEADER_ONLY 1
#define TOML_ENABLE_FORMATTERS 0
#include <toml++/toml.h>

namespace pistaro {

namespace {

constexpr double HighestPrice = 1e9;

class SetsReader {
public:
    SetsReader(const Catalogue& catalogue, const std::string& name) : catalogue_(catalogue), name_(name) {}

    BoxedSets Read(const toml::table& file) const {
        BoxedSets sets;
        for (const auto& [key, node] : file) {
            if (key != "set" || !node.is_array()) throw Wrong(node, "\"" + std::string(key.str()) + "\" is no [[set]]");
            for (const toml::node& set : *node.as_array()) {
                if (!set.is_table()) throw Wrong(set, "a set is no table");
                sets.push_back(SetIn(*set.as_table()));
            }
        }
        return sets;
    }

private:
    Fault Wrong(const toml::node& node, const std::string& reason) const {
        return BadFileFormat(name_ + ", line " + std::to_string(node.source().begin.line) + ": " + reason);
    }

    BoxedSet SetIn(const toml::table& table) const {
        for (const auto& [key, node] : table) {
            if (key != "name" && key != "price" && key != "pieces")
                throw Wrong(node, "a set has no \"" + std::string(key.str()) + "\"");
        }
        BoxedSet set;
        const toml::node* const name = table.get("name");
        if (name == nullptr || !name->is_string() || name->as_string()->get().empty())
            throw Wrong(name == nullptr ? table : *name, "a set wants a name");
        set.Name = name->as_string()->get();
        set.Price = PriceIn(table);
        const toml::node* const pieces = table.get("pieces");
        if (pieces == nullptr || !pieces->is_table())
            throw Wrong(pieces == nullptr ? table : *pieces, "\"" + set.Name + "\" wants pieces = { CODE = COUNT }");
        for (const auto& [code, count] : *pieces->as_table())
            if (!set.Pieces.emplace(ProductIn(std::string(code.str()), count), CountIn(count)).second)
                throw Wrong(count, "\"" + std::string(code.str()) + "\" is a product named before");
        return set;
    }

    Cents PriceIn(const toml::table& table) const {
        const toml::node* const price = table.get("price");
        const std::optional<double> value = price == nullptr ? std::nullopt : price->value<double>();
        if (!value || !(*value >= 0 && *value <= HighestPrice))
            throw Wrong(price == nullptr ? table : *price, "a set wants a price from 0 on");
        return CentsOf(*value);
    }

    int ProductIn(const std::string& code, const toml::node& node) const {
        const int row = code.empty() ? -1 : catalogue_.FindHeadRow(ProductCode(code));
        if (row < 0 || ProductCode(catalogue_[row].Code) != ProductCode(code))
            throw Wrong(node, "\"" + code + "\" is no piece of the catalogue");
        return row;
    }

    int CountIn(const toml::node& node) const {
        const auto* const count = node.as_integer();
        if (count == nullptr || count->get() < 0 || count->get() > MostInASet)
            throw Wrong(node, "a count is a whole number from 0 to " + std::to_string(MostInASet));
        return static_cast<int>(count->get());
    }

    const Catalogue& catalogue_;
    const std::string& name_;
};

/// Within double quotes.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        constexpr const char* digits = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            (quoted += '\\') += c;
        else if (byte < 0x20 || byte == 0x7F)
            ((quoted += "\\u00") += digits[byte / 16]) += digits[byte % 16];
        else
            quoted += c;
    }
    return quoted + '"';
}

} // namespace

BoxedSets ParseSets(const Catalogue& catalogue, std::string_view text, const std::string& name) {
    CheckTomlText(text, name);
    try {
        return SetsReader(catalogue, name).Read(toml::parse(text));
    } catch (const toml::parse_error& error) {
        throw BadFileFormat(name + ", line " + std::to_string(error.source().begin.line) + ": " +
                            std::string(error.description()));
    }
}

BoxedSets ReadSets(const Catalogue& catalogue, const std::filesystem::path& file) {
    return ParseSets(catalogue, ReadFile(file, MostFileBytes), TextFromPath(file));
}

std::optional<BoxedSets> SetsBeside(const Catalogue& catalogue, const std::filesystem::path& settings) {
    if (settings.empty()) return std::nullopt;
    const std::filesystem::path file = settings.parent_path() / SetsName;
    std::error_code toldByTheRead;
    if (!std::filesystem::exists(file, toldByTheRead) && !toldByTheRead) return std::nullopt;
    return ReadSets(catalogue, file);
}

std::string SetsText(const Catalogue& catalogue, const BoxedSets& sets) {
    std::ostringstream text;
    text << "# Boxed sets: what is in each, and what it costs. Pieces are counted by their code without its hand.\n";
    for (const BoxedSet& set : sets) {
        text << "\n[[set]]\nname = " << Quoted(set.Name) << "\nprice = " << MoneyText(set.Price) << "\npieces = { ";
        const char* between = "";
        for (const auto& [row, count] : set.Pieces) {
            text << between << ProductCode(catalogue[row].Code) << " = " << count;
            between = ", ";
        }
        text << " }\n";
    }
    return text.str();
}

BoxedSets ExampleSets(const Catalogue& catalogue) {
    const auto set = [&](const char* name, Cents price, const std::vector<std::pair<const char*, int>>& pieces) {
        BoxedSet made{name, price, {}};
        for (const auto& [code, count] : pieces)
            made.Pieces[catalogue.FindHeadRow(code)] = count;
        return made;
    };
    return {set("Example: oval", 4995, {{"C160", 4}, {"C151", 8}, {"C367", 1}, {"C277", 1}}),
            set("Example: straights", 1495, {{"C160", 6}}), set("Example: curves", 1995, {{"C151", 6}, {"C153", 4}}),
            set("Example: Ninco oval", 6995, {{"N10102", 6}, {"N10105", 8}})};
}

} // namespace pistaro
