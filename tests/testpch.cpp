// The one source of the target that holds the test programs' shared
// precompiled header (ORVANE_TEST_PCH in tests/CMakeLists.txt).
