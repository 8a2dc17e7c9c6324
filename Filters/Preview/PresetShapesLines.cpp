#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getLineShapes()
{
    return R"(
line P none M l t L r b;
lineInv P none M l b L r t;
straightConnector1 P none M l t L r b;
bentConnector2 P none M l t L r t r b;
bentConnector3 adj1:50000; x=w*adj1/100000;
    P none M l t L x t x b r b;
bentConnector4 adj1:50000; adj2:50000; x=w*adj1/100000; y=h*adj2/100000;
    P none M l t L x t x y r y r b;
bentConnector5 adj1:50000; adj2:50000; adj3:50000; x1=w*adj1/100000; y=h*adj2/100000; x3=w*adj3/100000;
    P none M l t L x1 t x1 y x3 y x3 b r b;
curvedConnector2 P none M l t C wd2 t r hd2 r b;
curvedConnector3 adj1:50000; x=w*adj1/100000;
    P none M l t C x/2 t x hd4 x vc x h*3/4 (r+x)/2 b r b;
curvedConnector4 adj1:50000; adj2:50000; x=w*adj1/100000; y=h*adj2/100000; y1=y/2; x3=(r+x)/2;
    P none M l t C x/2 t x y1/2 x y1 x (y1+y)/2 (x+x3)/2 y x3 y (x3+r)/2 y r (b+y)/2 r b;
curvedConnector5 adj1:50000; adj2:50000; adj3:50000; x1=w*adj1/100000; y=h*adj2/100000; x3=w*adj3/100000;
    y1=y/2; x2=(x1+x3)/2; y3=(y+b)/2;
    P none M l t C x1/2 t x1 y1/2 x1 y1 x1 (y1+y)/2 (x1+x2)/2 y x2 y (x2+x3)/2 y x3 (y+y3)/2 x3 y3
        x3 (y3+b)/2 (x3+r)/2 b r b;
bracketPair adj:16667; a=pin(0,adj,50000); x=ss*a/100000; i=x*29289/100000;
    T i i r-i b-i;
    P bare M l x A x x cd2 cd4 L r-x t A x x 3cd4 cd4 L r b-x A x x 0 cd4 L x b A x x cd4 cd4 Z;
    P none M x b A x x cd4 cd4 L l x A x x cd2 cd4 M r-x t A x x 3cd4 cd4 L r b-x A x x 0 cd4;
bracePair adj:8333; a=pin(0,adj,25000); x=ss*a/100000; x2=x*2; i=x+x*29289/100000;
    T i x*29289/100000 r-i b-x*29289/100000;
    P bare M x2 b A x x cd4 cd4 L x vc+x A x x 0 -cd4 x x cd4 -cd4 L x x A x x cd2 cd4 L r-x2 t
        A x x 3cd4 cd4 L r-x vc-x A x x cd2 -cd4 x x 3cd4 -cd4 L r-x b-x A x x 0 cd4 Z;
    P none M x2 b A x x cd4 cd4 L x vc+x A x x 0 -cd4 x x cd4 -cd4 L x x A x x cd2 cd4 M r-x2 t
        A x x 3cd4 cd4 L r-x vc-x A x x cd2 -cd4 x x 3cd4 -cd4 L r-x b-x A x x 0 cd4;
leftBracket adj:8333; a=pin(0,adj,50000*h/ss); y=ss*a/100000; i=y-sin(y,2700000);
    T r-cos(w,2700000) i r b-i;
    P bare M r b A w y cd4 cd4 L l y A w y cd2 cd4 Z;
    P none M r b A w y cd4 cd4 L l y A w y cd2 cd4;
rightBracket adj:8333; a=pin(0,adj,50000*h/ss); y=ss*a/100000; i=y-sin(y,2700000);
    T l i l+cos(w,2700000) b-i;
    P bare M l t A w y 3cd4 cd4 L r b-y A w y 0 cd4 Z;
    P none M l t A w y 3cd4 cd4 L r b-y A w y 0 cd4;
@brace a2=pin(0,adj2,100000); maxAdj1=min(100000-a2,a2)/2*h/ss; a1=pin(0,adj1,maxAdj1);
    y=ss*a1/100000; m=h*a2/100000; i=y-sin(y,2700000);
leftBrace adj1:8333; adj2:50000; @brace;
    T r-cos(wd2,2700000) i r b-i;
    P bare M r b A wd2 y cd4 cd4 L hc m+y A wd2 y 0 -cd4 wd2 y cd4 -cd4 L hc y A wd2 y cd2 cd4 Z;
    P none M r b A wd2 y cd4 cd4 L hc m+y A wd2 y 0 -cd4 wd2 y cd4 -cd4 L hc y A wd2 y cd2 cd4;
rightBrace adj1:8333; adj2:50000; @brace;
    T l i l+cos(wd2,2700000) b-i;
    P bare M l t A wd2 y 3cd4 cd4 L hc m-y A wd2 y cd2 -cd4 wd2 y 3cd4 -cd4 L hc b-y A wd2 y 0 cd4 Z;
    P none M l t A wd2 y 3cd4 cd4 L hc m-y A wd2 y cd2 -cd4 wd2 y 3cd4 -cd4 L hc b-y A wd2 y 0 cd4;
)";
}

} // namespace QV::Filters
