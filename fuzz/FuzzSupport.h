#pragma once
// What the fuzz targets share: a private scratch folder made once per process
// (removed at exit), the input written to a file there, and a stream that
// swallows output.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace zt::fuzz {

// The process's own scratch folder, made on the first call.
const std::filesystem::path& scratchDir();

// Replaces the file name in the scratch folder with data; returns its path.
std::filesystem::path writeScratch(const std::string& name, const std::uint8_t* data,
                                   std::size_t size);

// Empties the scratch folder (files a run left behind).
void clearScratch();

// Makes the scratch folder the data folder, with the log quiet.
void useScratchAsDataDir();

// Empties the scratch folder and writes the input there as the data file
// `name`. Always true: every input is a file the app may meet.
bool placeDataFile(const std::string& name, const std::uint8_t* data, std::size_t size);

// An output stream that discards everything.
std::ostream& nullStream();

// The input cut at each '\n' (the last piece may be empty).
std::vector<std::string> lines(const std::uint8_t* data, std::size_t size);

}  // namespace zt::fuzz
