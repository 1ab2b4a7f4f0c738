# pellora_http_server(<target>): the test server's sources as a part of the target.
pkg_check_modules(SSL REQUIRED IMPORTED_TARGET GLOBAL libssl libcrypto)
function(pellora_http_server target)
  target_sources(${target} PRIVATE
    "${PROJECT_SOURCE_DIR}/tests/support/http/HttpServer.cpp" "${PROJECT_SOURCE_DIR}/tests/support/http/TlsIdentity.cpp")
  target_link_libraries(${target} PRIVATE PkgConfig::SSL)
endfunction()
