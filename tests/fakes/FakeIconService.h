#pragma once

#include <map>

#include "platform/files/IconService.h"
#include "tests/fakes/Replaced.h"

namespace Tests {

// Gives a picture of its own for each question, the same one for the same
// question, and keeps the questions. Images cannot be looked into here, so a
// picture is known by the question that made it.
class FakeIconService final : public Platform::IconService {
public:
    Platform::ImageRef iconForFile(const std::string& path) override { return answer("file " + path); }
    Platform::ImageRef iconForContentType(std::string_view type) override
    {
        return answer("type " + std::string(type));
    }
    Platform::ImageRef iconForFileType(std::string_view extension) override
    {
        return answer("ending " + std::string(extension));
    }
    Platform::ImageRef imageFromFile(const Platform::Url& url) override { return answer("image " + url.path()); }

    // Without a picture this question is answered with null.
    void lack(const std::string& question) { images_[question] = nullptr; }
    // The question that a picture answers.
    std::string nameOf(const Platform::ImageRef& image) const
    {
        for (const auto& [question, known] : images_) {
            if (image && known == image) return question;
        }
        return "";
    }
    std::vector<std::string> questions;

private:
    Platform::ImageRef answer(const std::string& question)
    {
        questions.push_back(question);
        const auto known = images_.find(question);
        if (known != images_.end()) return known->second;
        const auto token = std::make_shared<std::string>(question);
        // Only the address counts; nobody looks into it.
        return images_[question] = Platform::ImageRef(token, reinterpret_cast<Platform::Image*>(token.get()));
    }

    std::map<std::string, Platform::ImageRef> images_;
};

using ReplacedIconService = Replaced<Platform::IconService, FakeIconService>;

}  // namespace Tests
