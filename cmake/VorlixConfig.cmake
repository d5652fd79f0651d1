include(CMakeFindDependencyMacro)
find_dependency(Qt6 COMPONENTS Core Network)
find_dependency(Threads)
include(${CMAKE_CURRENT_LIST_DIR}/VorlixTargets.cmake)
