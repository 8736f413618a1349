# The installed library, its CMake package and its pkg-config file.
