#pragma once

#include <string>

namespace Platform {

// A shared library that is loaded when it is first needed, so that a program
// that never needs it does not carry it and all that it brings along. What
// takes its functions keeps them in fields, in the order of the library first:
//
//     struct Ping {
//         SystemLibrary library{"libping.so.1"};
//         decltype(&ping_send) send = library.find("ping_send");
//     };
//
// It stays loaded until the process ends. Thread: any, one at a time.
class SystemLibrary {
public:
    // A function as it was found, for a pointer of its type; null where there is none.
    class Function {
    public:
        explicit Function(void* address) : address_(address) {}
        template <typename Type>
        operator Type*() const
        {
            return reinterpret_cast<Type*>(address_);
        }

    private:
        void* address_;
    };

    // By the name that programs link, with the number of its interface.
    explicit SystemLibrary(const char* name);

    // In the library and in those that it brings along.
    Function find(const char* function);
    // The library is there, and so is everything that was asked for until now.
    bool isUsable() const { return failure_.empty(); }
    // Why it is not; empty where it is.
    const std::string& failure() const { return failure_; }

private:
    void* handle_ = nullptr;
    std::string failure_;
};

// The one instance of such a struct. It is never destroyed, as what the library
// has started goes on, and threads may outlive main. What is to be done first
// is done once. Thread: any.
template <typename Library>
const Library& loadedOnce(void (*first)(const Library&))
{
    static const Library& loaded = *[first] {
        const auto* const made = new Library;
        first(*made);
        return made;
    }();
    return loaded;
}

}  // namespace Platform
