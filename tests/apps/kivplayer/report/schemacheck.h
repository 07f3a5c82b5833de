#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

/// What a JSON value breaks of a schema, a line each with the place in front; empty where it obeys. Knows the
/// keywords that the report's schema uses; a rule with any other keyword is itself a complaint, so that no
/// rule is passed over.
std::vector<std::string> schemaComplaints(const nlohmann::ordered_json& schema,
                                          const nlohmann::ordered_json& value);
