#include "model/Comments.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(OwnedComments, KeepTheirOrderPerOwner) {
    OwnedComments comments;
    comments.Add(2, "first");
    comments.Add(1, "other");
    comments.Add(2, "second");
    EXPECT_EQ(comments.Of(2), (CommentLines{"first", "second"}));
    EXPECT_EQ(comments.Of(1), CommentLines{"other"});
    EXPECT_EQ(comments.Of(3), CommentLines{});
}

TEST(OwnedComments, AreDroppedByOwner) {
    OwnedComments comments;
    comments.Add(1, "one");
    comments.Add(2, "two");
    comments.Drop(1);
    comments.Drop(7);
    EXPECT_EQ(comments.Of(1), CommentLines{});
    EXPECT_EQ(comments.Of(2), CommentLines{"two"});
}

} // namespace
} // namespace strativo
