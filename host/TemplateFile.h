#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace ovalia::host {

// Whether a file's bytes are a document in a word processor's own format, which has to be converted to RTF.
bool isForeignFormat(std::string_view bytes);

// The bytes of a template. TemplateFailure where it is missing or cannot be read.
std::string templateBytes(const std::filesystem::path& file);

// The template as an RTF document; one in another format is converted, in which time `meanwhile` is called.
// TemplateFailure also where that cannot be done. Whether it is whole is not looked at.
std::string templateAsRtf(const std::filesystem::path& file, const std::function<void()>& meanwhile = {});

}  // namespace ovalia::host
