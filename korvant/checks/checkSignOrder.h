// The sign order check: lists the posts whose plates do not stand in the order of their library files.
#pragma once

// Runs over model space with a window that reports what it finds and stays open for the user. Changes
// nothing in the drawing. False when the user broke it off.
bool checkSignOrder();
