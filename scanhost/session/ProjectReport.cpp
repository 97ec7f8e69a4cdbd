// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ProjectReport.h"

#include <string>
#include <variant>

namespace ScanHost {

namespace {

Json::Value jsonOf(const Hx::AttrValue& value) {
    if (const bool* flag = std::get_if<bool>(&value)) {
        return *flag;
    }
    if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) {
        return *number;
    }
    if (const double* number = std::get_if<double>(&value)) {
        return jsonNumber(*number);
    }
    const Tq_1_1::String* text = std::get_if<Tq_1_1::String>(&value);
    return text == nullptr || text->isNull() ? Json::Value() : Json::Value(text->toUtf8());
}

}  // namespace

void describeProject(const Vardex::VardexDataObj& project, bool forHost, Report& report) {
    report.addText("file", "file", project.getFilePath().toUtf8());
    if (!forHost) {
        return;
    }
    Report& host = report.group("host", "what the module says to a host");
    host.addText("name", "name", project.getName().toUtf8());
    host.addText("class", "class", project.getClassType()->getName().toUtf8());
    Report& attributes = host.group("attributes", "attributes");
    for (const auto& attribute : project.getAttributes()) {
        const std::string name = project.getAttrName(attribute->getToken()).toUtf8();
        const Json::Value value = jsonOf(attribute->getValue());
        attributes.add(name, name, value, value.isNull() ? "none" : value.asString());
    }
    const Json::Value form = project.toJson();
    host.addBlock("json", "JSON form", form, jsonLine(form));
}

}  // namespace ScanHost
