#include "tests/apps/kivplayer/report/schemacheck.h"

#include <algorithm>
#include <set>

namespace {

using Json = nlohmann::ordered_json;

bool hasType(const Json& value, const std::string& type)
{
    if (type == "number")
        return value.is_number();
    if (type == "integer")
        return value.is_number_integer();
    return type == (value.is_boolean() ? "boolean" : value.type_name());
}

class Checker
{
public:
    explicit Checker(const Json& schema) : m_schema(schema) {}

    void check(const Json& rule, const Json& value, const std::string& place)
    {
        for (const auto& [keyword, argument] : rule.items())
            checkKeyword(keyword, argument, rule, value, place);
    }

    std::vector<std::string> m_complaints;

private:
    void checkKeyword(const std::string& keyword, const Json& argument, const Json& rule, const Json& value,
                      const std::string& place)
    {
        static const std::set<std::string> silent{"$schema", "$defs", "title", "description"};
        if (keyword == "$ref")
            check(m_schema.at(Json::json_pointer(argument.get<std::string>().substr(1))), value, place);
        else if (keyword == "type")
            checkType(argument, value, place);
        else if (keyword == "enum")
            demand(std::find(argument.begin(), argument.end(), value) != argument.end(), place,
                   "is none of " + argument.dump());
        else if (keyword == "minimum")
            demand(!value.is_number() || value >= argument, place, "is below " + argument.dump());
        else if (keyword == "exclusiveMinimum")
            demand(!value.is_number() || value > argument, place, "is not above " + argument.dump());
        else if (keyword == "items")
            checkItems(argument, value, place);
        else if (keyword == "properties" || keyword == "required" || keyword == "additionalProperties")
            checkMembers(keyword, argument, rule, value, place);
        else
            demand(silent.count(keyword) > 0, place, "has a rule that is not known: " + keyword);
    }

    void checkType(const Json& types, const Json& value, const std::string& place)
    {
        bool fits = false;
        for (const Json& type : types.is_array() ? types : Json::array({types}))
            fits |= hasType(value, type);
        demand(fits, place, "is no " + types.dump());
    }

    void checkItems(const Json& rule, const Json& value, const std::string& place)
    {
        for (std::size_t i = 0; value.is_array() && i < value.size(); ++i)
            check(rule, value[i], place + "/" + std::to_string(i));
    }

    void checkMembers(const std::string& keyword, const Json& argument, const Json& rule, const Json& value,
                      const std::string& place)
    {
        if (!value.is_object())
            return;
        if (keyword == "required") {
            for (const Json& name : argument)
                demand(value.contains(name.get<std::string>()), place, "lacks " + name.dump());
            return;
        }
        for (const auto& [name, member] : value.items()) {
            const bool known = rule.at("properties").contains(name);
            if (keyword == "properties" && known)
                check(argument.at(name), member, place + "/" + name);
            else if (keyword == "additionalProperties" && argument == false)
                demand(known, place, "has an unknown " + name);
        }
    }

    void demand(bool fulfilled, const std::string& place, const std::string& complaint)
    {
        if (!fulfilled)
            m_complaints.push_back((place.empty() ? "/" : place) + " " + complaint);
    }

    const Json& m_schema;
};

}  // namespace

std::vector<std::string> schemaComplaints(const nlohmann::ordered_json& schema,
                                          const nlohmann::ordered_json& value)
{
    Checker checker(schema);
    checker.check(schema, value, "");
    return checker.m_complaints;
}
