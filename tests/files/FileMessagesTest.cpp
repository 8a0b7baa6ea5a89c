#include "files/FileMessages.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

struct Row {
    const char* name;
    const FileMessages& messages;
    ErrorNumber number;
    const char* text;
};

std::string RowName(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

class FileMessage : public testing::TestWithParam<Row> {};

TEST_P(FileMessage, HasTheTextOfItsNumber) {
    EXPECT_EQ(GetParam().messages.Text(GetParam().number), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Standard, FileMessage,
    testing::Values(Row{"WrongContent", standardLibraryMessages, ErrorNumber::invalidArgument,
                        "Standard material file is incorrect version"},
                    Row{"Missing", standardLibraryMessages, ErrorNumber::fileNotFound,
                        "Standard material file is missing."},
                    Row{"NoDrive", standardLibraryMessages, ErrorNumber::deviceUnavailable,
                        "Standard material file. Drive not available."},
                    Row{"NoPath", standardLibraryMessages, ErrorNumber::pathNotFound,
                        "Standard material file. That path doesn't exist."},
                    Row{"Other", standardLibraryMessages, ErrorNumber::subscriptOutOfRange,
                        "Standard material file error 9 occurred."}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    User, FileMessage,
    testing::Values(Row{"WrongContent", userLibraryMessages, ErrorNumber::invalidArgument,
                        "User material file is incorrect version"},
                    Row{"Missing", userLibraryMessages, ErrorNumber::fileNotFound,
                        "User material file is missing."},
                    Row{"NoDriveCapital", userLibraryMessages, ErrorNumber::deviceUnavailable,
                        "User Material file. Drive not available."},
                    Row{"NoPathCapital", userLibraryMessages, ErrorNumber::pathNotFound,
                        "User Material file. That path doesn't exist."},
                    Row{"OtherCapital", userLibraryMessages, ErrorNumber::permissionDenied,
                        "User Material file error 70 occurred."}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    Construction, FileMessage,
    testing::Values(Row{"WrongContent", constructionFileMessages, ErrorNumber::invalidArgument,
                        "Construction file (p) is incorrect version"},
                    Row{"Missing", constructionFileMessages, ErrorNumber::fileNotFound,
                        "Construction file (p) is missing."},
                    Row{"NoDrive", constructionFileMessages, ErrorNumber::deviceUnavailable,
                        "Construction file (p). Drive not available."},
                    Row{"NoPath", constructionFileMessages, ErrorNumber::pathNotFound,
                        "Construction file (p). That path doesn't exist."},
                    Row{"Other", constructionFileMessages, ErrorNumber::overflow,
                        "Construction file (p) error 6 occurred."}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    Glass, FileMessage,
    testing::Values(Row{"WrongContent", glassImportMessages, ErrorNumber::invalidArgument,
                        "Construction file (g) is incorrect version"},
                    Row{"Missing", glassImportMessages, ErrorNumber::fileNotFound,
                        "Construction file (g) is missing."},
                    Row{"NoDrive", glassImportMessages, ErrorNumber::deviceUnavailable,
                        "Construction file (g). Drive not available."},
                    Row{"NoPath", glassImportMessages, ErrorNumber::pathNotFound,
                        "Construction file (g). That path doesn't exist."},
                    Row{"OtherWithTwoBlanks", glassImportMessages, ErrorNumber::pathFileAccess,
                        "Construction (g) file error  75 occurred."}),
    RowName);

} // namespace
} // namespace strativo
