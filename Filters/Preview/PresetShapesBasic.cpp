#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {

const char* getRectangleShapes()
{
    return R"(
rect P M l t L r t r b l b Z;
roundRect adj:16667; a=pin(0,adj,50000); x=ss*a/100000; i=x*29289/100000;
    T i i r-i b-i;
    P M l x A x x cd2 cd4 L r-x t A x x 3cd4 cd4 L r b-x A x x 0 cd4 L x b A x x cd4 cd4 Z;
round1Rect adj:16667; a=pin(0,adj,50000); x=ss*a/100000; i=x*29289/100000;
    T l t r-i b;
    P M l t L r-x t A x x 3cd4 cd4 L r b l b Z;
round2SameRect adj1:16667; adj2:0; a1=pin(0,adj1,50000); a2=pin(0,adj2,50000);
    x=ss*a1/100000; y=ss*a2/100000; i=max(x,y)*29289/100000;
    T i x*29289/100000 r-i b-y*29289/100000;
    P M x t L r-x t A x x 3cd4 cd4 L r b-y A y y 0 cd4 L y b A y y cd4 cd4 L l x A x x cd2 cd4 Z;
round2DiagRect adj1:16667; adj2:0; a1=pin(0,adj1,50000); a2=pin(0,adj2,50000);
    x=ss*a1/100000; y=ss*a2/100000; i=max(x,y)*29289/100000;
    T i i r-i b-i;
    P M x t L r-y t A y y 3cd4 cd4 L r b-x A x x 0 cd4 L y b A y y cd4 cd4 L l x A x x cd2 cd4 Z;
snip1Rect adj:16667; a=pin(0,adj,50000); x=ss*a/100000;
    T l x/2 r-x/2 b;
    P M l t L r-x t r x r b l b Z;
snip2SameRect adj1:16667; adj2:0; a1=pin(0,adj1,50000); a2=pin(0,adj2,50000);
    x=ss*a1/100000; y=ss*a2/100000; i=max(x,y)/2;
    T i x/2 r-i b-y/2;
    P M x t L r-x t r x r b-y r-y b y b l b-y l x Z;
snip2DiagRect adj1:0; adj2:16667; a1=pin(0,adj1,50000); a2=pin(0,adj2,50000);
    x=ss*a1/100000; y=ss*a2/100000; i=max(x,y)/2;
    T i i r-i b-i;
    P M x t L r-y t r y r b-x r-x b y b l b-y l x Z;
snipRoundRect adj1:16667; adj2:16667; a1=pin(0,adj1,50000); a2=pin(0,adj2,50000);
    x=ss*a1/100000; y=ss*a2/100000; i=x*29289/100000;
    T i i r-y/2 b;
    P M x t L r-y t r y r b l b l x A x x cd2 cd4 Z;
plaque adj:16667; a=pin(0,adj,50000); x=ss*a/100000; i=x*70711/100000;
    T i i r-i b-i;
    P M l x A x x cd4 -cd4 L r-x t A x x cd2 -cd4 L r b-x A x x 3cd4 -cd4 L x b A x x 0 -cd4 Z;
frame adj1:12500; a=pin(0,adj1,50000); x=ss*a/100000;
    T x x r-x b-x;
    P M l t L r t r b l b Z M x x L x b-x r-x b-x r-x x Z;
halfFrame adj1:33333; adj2:33333; maxAdj2=100000*w/ss; a2=pin(0,adj2,maxAdj2); x1=ss*a2/100000;
    maxAdj1=100000*(h-h*x1/w)/ss; a1=pin(0,adj1,maxAdj1); y1=ss*a1/100000;
    P M l t L r t r-y1*w/h y1 x1 y1 x1 b-x1*h/w l b Z;
corner adj1:50000; adj2:50000; a1=pin(0,adj1,100000*h/ss); a2=pin(0,adj2,100000*w/ss);
    x=ss*a2/100000; y=b-ss*a1/100000;
    T l if(w-h,y,t) if(w-h,r,x) b;
    P M l t L x t x y r y r b l b Z;
diagStripe adj:50000; a=pin(0,adj,100000); x=w*a/100000; y=h*a/100000;
    T l t (x+r)/2 (y+b)/2;
    P M l y L x t r t l b Z;
foldedCorner adj:16667; a=pin(0,adj,50000); d=ss*a/100000; e=d/5; x1=r-d; x2=x1+e; y2=b-d; y1=y2+e;
    T l t r y2;
    P bare M l t L r t r y2 x1 b l b Z;
    P darkless bare M x1 b L x2 y1 r y2 Z;
    P none M x1 b L x2 y1 r y2 x1 b l b l t r t r y2;
cube adj:25000; a=pin(0,adj,100000); y=ss*a/100000; y4=b-y; x4=r-y;
    T l y x4 b;
    P bare M l y L x4 y x4 b l b Z;
    P lightless bare M l y L y t r t x4 y Z;
    P darkless bare M x4 y L r t r y4 x4 b Z;
    P none M l y L y t r t r y4 x4 b l b Z M l y L x4 y r t M x4 y L x4 b;
bevel adj:12500; a=pin(0,adj,50000); x=ss*a/100000; x2=r-x; y2=b-x;
    T x x x2 y2;
    P bare M x x L x2 x x2 y2 x y2 Z;
    P lightless bare M l t L r t x2 x x x Z;
    P darkless bare M l b L x y2 x2 y2 r b Z;
    P light bare M l t L x x x y2 l b Z;
    P dark bare M r t L r b x2 y2 x2 x Z;
    P none M l t L r t r b l b Z M x x L x2 x x2 y2 x y2 Z M l t L x x M l b L x y2 M r t L x2 x M r b L x2
        y2;
cornerTabs d=mod(w,h,0)/20; x=r-d; y=b-d;
    T d d x y;
    P M l t L d t l d Z;
    P M l y L d b l b Z;
    P M x t L r t r d Z;
    P M r y L r b x b Z;
squareTabs d=mod(w,h,0)/20; x=r-d; y=b-d;
    T d d x y;
    P M l t L d t d d l d Z;
    P M l y L d y d b l b Z;
    P M x t L r t r d x d Z;
    P M x y L r y r b x b Z;
plaqueTabs d=mod(w,h,0)/20; x=r-d; y=b-d;
    T d d x y;
    P M l t L d t A d d 0 cd4 Z;
    P M l y A d d 3cd4 cd4 L l b Z;
    P M r t L r d A d d cd4 cd4 Z;
    P M x b A d d cd2 cd4 L r b Z;
)";
}

const char* getPolygonShapes()
{
    return R"(
triangle adj:50000; a=pin(0,adj,100000); x1=w*a/200000;
    T x1 vc x1+wd2 b;
    P M l b L w*a/100000 t r b Z;
rtTriangle T w/12 h*7/12 w*7/12 h*11/12;
    P M l b L l t r b Z;
parallelogram adj:25000; maxAdj=100000*w/ss; a=pin(0,adj,maxAdj); x=ss*a/100000; q=(1+5*a/maxAdj)/12;
    T w*q h*q r-w*q b-h*q;
    P M l b L x t r t r-x b Z;
trapezoid adj:25000; maxAdj=50000*w/ss; a=pin(0,adj,maxAdj); x=ss*a/100000; i=wd3*a/maxAdj;
    T i hd3*a/maxAdj r-i b;
    P M l b L x t r-x t r b Z;
nonIsoscelesTrapezoid adj1:25000; adj2:25000; maxAdj=50000*w/ss; a1=pin(0,adj1,maxAdj); a2=pin(0,adj2,maxAdj);
    T wd3*a1/maxAdj hd3*max(a1,a2)/maxAdj r-wd3*a2/maxAdj b;
    P M l b L ss*a1/100000 t r-ss*a2/100000 t r b Z;
diamond T wd4 hd4 w*3/4 h*3/4;
    P M l vc L hc t r vc hc b Z;
pentagon hf:105146; vf:110557; rx=wd2*hf/100000; ry=hd2*vf/100000; c=vc*vf/100000;
    dx1=cos(rx,1080000); dx2=cos(rx,18360000); y1=c-sin(ry,1080000); y2=c-sin(ry,18360000);
    T hc-dx2 y1*dx2/dx1 hc+dx2 y2;
    P M hc-dx1 y1 L hc t hc+dx1 y1 hc+dx2 y2 hc-dx2 y2 Z;
hexagon adj:25000; vf:115470; maxAdj=50000*w/ss; a=pin(0,adj,maxAdj); x=ss*a/100000;
    dy=sin(hd2*vf/100000,3600000);
    q1=-maxAdj/2; q2=a+q1; q6=(a+if(q2,q1,0))/q1; q8=if(q2,4,2)-q6*if(q2,3,2); i=w*q8/24; j=h*q8/24;
    T i j r-i b-j;
    P M l vc L x vc-dy r-x vc-dy r vc r-x vc+dy x vc+dy Z;
heptagon hf:102572; vf:105210; rx=wd2*hf/100000; ry=hd2*vf/100000; c=vc*vf/100000;
    dx1=rx*97493/100000; dx2=rx*78183/100000; dx3=rx*43388/100000;
    y1=c-ry*62349/100000; y2=c+ry*22252/100000; y3=c+ry*90097/100000;
    T hc-dx2 y1 hc+dx2 b-y1;
    P M hc-dx1 y2 L hc-dx2 y1 hc t hc+dx2 y1 hc+dx1 y2 hc+dx3 y3 hc-dx3 y3 Z;
octagon adj:29289; a=pin(0,adj,50000); x=ss*a/100000;
    T x/2 x/2 r-x/2 b-x/2;
    P M l x L x t r-x t r x r b-x r-x b x b l b-x Z;
decagon vf:105146; ry=hd2*vf/100000; dx1=cos(wd2,2160000); dx2=cos(wd2,4320000);
    dy1=sin(ry,4320000); dy2=sin(ry,2160000);
    T hc-dx1 vc-dy2 hc+dx1 vc+dy2;
    P M l vc L hc-dx1 vc-dy2 hc-dx2 vc-dy1 hc+dx2 vc-dy1 hc+dx1 vc-dy2 r vc hc+dx1 vc+dy2 hc+dx2 vc+dy1
        hc-dx2 vc+dy1 hc-dx1 vc+dy2 Z;
dodecagon x1=w*2894/21600; x2=w*7906/21600; y1=h*2894/21600; y2=h*7906/21600;
    T x1 y1 r-x1 b-y1;
    P M l y2 L x1 y1 x2 t r-x2 t r-x1 y1 r y2 r b-y2 r-x1 b-y1 r-x2 b x2 b x1 b-y1 l b-y2 Z;
plus adj:25000; a=pin(0,adj,50000); x=ss*a/100000; d=w-h;
    T if(d,l,x) if(d,x,t) if(d,r,r-x) if(d,b-x,b);
    P M l x L x x x t r-x t r-x x r x r b-x r-x b-x r-x b x b x b-x l b-x Z;
homePlate adj:50000; a=pin(0,adj,100000*w/ss); x=r-ss*a/100000;
    T l t (x+r)/2 b;
    P M l t L x t r vc x b l b Z;
chevron adj:50000; a=pin(0,adj,100000*w/ss); x1=ss*a/100000; x2=r-x1; d=x2-x1;
    T if(d,x1,l) t if(d,x2,r) b;
    P M l t L x2 t r vc x2 b l b x1 vc Z;
)";
}

} // namespace QV::Filters
