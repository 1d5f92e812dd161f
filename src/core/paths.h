#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

/// Limits of a path, in bytes with a closing NUL: the paths of a run, and the paths of Error.log
/// and defectos.inp that are put together from a folder and a name.
inline constexpr std::size_t kPathCapacity = 3000;
inline constexpr std::size_t kComposedPathCapacity = 2000;

/// Ends the run when `path` does not fit into `capacity` bytes.
void requirePathWithin(std::string_view path, std::size_t capacity);

/// The folder of `path`: everything up to and including the last "/" or "\", or a drive's colon
/// ("C:casa.bdl"); empty when there is none.
std::string folderOf(std::string_view path);

/// `path` for the standard library, which would misread UTF-8 where the system's own names are no
/// bytes. Every call of std::filesystem takes one of these.
std::filesystem::path filePath(const std::string& path);

/// The way back: the name of such a path as our own texts have it.
std::string nameOf(const std::filesystem::path& path);

/// Whether two paths name one file, there already or not yet.
bool sameFile(const std::string& first, const std::string& second);

/// Whether something other than a folder is there; whether it can be read is not asked.
bool fileExists(const std::string& path);
