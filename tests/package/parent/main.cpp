// A program of a project that builds the library among its own sources. Exits with 1 when a list does not come back as
// it was.

#include <orvan/hosting/HeadlessProductView.h>

#include <iostream>

int main()
{
    orvan::HeadlessHost host;
    orvan::HeadlessProductView view(host.platform());
    const std::string products = "1~Desk lamp:::74.95:2:0:149.9:~";
    view.Show(products);
    std::cout << view.Products() << '\n';
    return view.Products() == products ? 0 : 1;
}
