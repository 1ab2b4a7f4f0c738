#include <gtest/gtest.h>

#include "Fennick/Support.h"
#include "Fennick/internal/SupportPage.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/fakes/FakeWorkspace.h"

TEST(Support, OpensAnAddressOrSaysThatThereIsNone)
{
    const Tests::ReplacedWorkspace workspace;
    const Tests::ReplacedLog log;
    Fennick::internal::openPage("https://example.org/faq", "FAQ");
    EXPECT_EQ(workspace->openedURLs(), std::vector{*Platform::Url::parse("https://example.org/faq")});
    Fennick::Support::openContactPage();
    Fennick::Support::openFAQPage();
    EXPECT_EQ(workspace->openedURLs().size() + log->count("no address for the"), 3u);
}
