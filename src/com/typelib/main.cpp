// Writes what is made from the member table for Windows clients.
//
//   make_typelib idl FILE            the type library's source, for widl
//   make_typelib header FILE         the header for C++ clients
//   make_typelib arrange LIBRARY 4   corrects what widl has made, in place; the number is a pointer's size

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "com/typelib/text.h"

namespace {

std::string read_file(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(std::string(path) + " cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

void write_file(const char* path, const std::string& content) {
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file) throw std::runtime_error(std::string(path) + " cannot be written");
}

void run(std::string_view command, const char* path, const char* pointer_size) {
    using namespace foliant::com::typelib;
    if (command == "idl") {
        write_file(path, idl());
    } else if (command == "header") {
        write_file(path, cpp_header());
    } else if (command == "arrange" && pointer_size != nullptr) {
        std::string library = read_file(path);
        arrange(library, pointer_size[0] - '0');
        write_file(path, library);
    } else {
        throw std::runtime_error("the first argument is idl, header or arrange");
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc < 3) throw std::runtime_error("usage: make_typelib idl|header|arrange FILE [POINTER-SIZE]");
        run(argv[1], argv[2], argc > 3 ? argv[3] : nullptr);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_typelib: %s\n", error.what());
        return 1;
    }
}
