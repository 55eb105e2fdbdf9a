#include <cstdio>

int main() {
    std::puts("paginox-tool");
    return 0;
}
